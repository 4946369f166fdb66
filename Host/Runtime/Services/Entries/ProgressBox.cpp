#include "Services/Entries/ProgressBox.h"

#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

/// No dialog: nobody answers it, and it takes neither the focus nor the user's input from others. A
/// click takes away one that a module has forgotten.
class ProgressBox : public QWidget {
public:
  ProgressBox() : QWidget(nullptr, Qt::SplashScreen | Qt::WindowDoesNotAcceptFocus) {
    setObjectName(QStringLiteral("ProgressBox"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QCoreApplication::translate("ProgressBox", "Please wait…"));
    layout->addWidget(label);
    auto* bar = new QProgressBar;
    bar->setAccessibleName(label->text());
    bar->setRange(0, 0); // nobody knows how far it is
    bar->setTextVisible(false);
    layout->addWidget(bar);
  }

protected:
  void mousePressEvent(QMouseEvent*) override { hide(); }
};

QPointer<ProgressBox>& box() {
  static QPointer<ProgressBox> instance;
  return instance;
}

void showProgressBox() {
  if (!box())
    box() = new ProgressBox;
  const QWidget* over = QApplication::activeWindow();
  box()->adjustSize();
  if (over && over != box())
    box()->move(over->frameGeometry().center() - box()->rect().center());
  box()->show();
  // The slow step runs no event loop.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

void hideProgressBox() {
  delete box();
}

CallResult ownShowProgressBox(const std::vector<ScriptVector>& arguments) {
  if (arguments.at(0).reals.at(0) == 0)
    hideProgressBox();
  else
    showProgressBox();
  return {};
}

void showProgressBoxEntry(int show) {
  asEntry(
      [&] { askProvider(dyn_ShowProgressBox.name, {ScriptVector::ofReals({show ? 1.0 : 0.0})}); });
}
