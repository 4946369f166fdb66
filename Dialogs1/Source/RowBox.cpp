#include "RowBox.h"

#include "HostSupport/Arguments.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr unsigned mostRows = 1000;
constexpr double tallestShare = 0.7; // of the screen; title bar and buttons want the rest

class RowScrollArea : public QScrollArea {
public:
  RowScrollArea(QWidget* parent, int height) : QScrollArea(parent), m_height(height) {}
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    const QSize contents = widget()->sizeHint();
    return {contents.width() + verticalScrollBar()->sizeHint().width(), m_height};
  }

private:
  int m_height;
};

/// Puts `contents` in a scroll area where it is taller than the screen has room for.
void scrollWhenTall(QWidget* contents) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const int tallest = screen ? int(screen->availableGeometry().height() * tallestShare) : 0;
  if (!screen || contents->sizeHint().height() <= tallest)
    return;
  QWidget* parent = contents->parentWidget();
  auto* area = new RowScrollArea(parent, tallest);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  delete parent->layout()->replaceWidget(contents, area);
  area->setWidget(contents);
}

} // namespace

RowBox::RowBox(const char* objectName) : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
}

void RowBox::initialiseDialog() {
  dimsSavingEnabled = true;
}

void RowBox::showEvent(QShowEvent* event) {
  resize(0, 0);
  KelvarinDialog::showEvent(event);
}

void RowBox::hideSelectButtons() {
  form.selectAllButton->hide();
  form.unselectAllButton->hide();
}

void RowBox::finishRows(QWidget* first) {
  // Rows stay together in a window that is taller than they are.
  form.groupBoxLayout->setRowStretch(form.groupBoxLayout->rowCount(), 1);
  scrollWhenTall(form.groupBox);
  if (!first)
    return;
  // The form's buttons were there first; the user starts in the rows.
  first->setFocus(Qt::TabFocusReason);
  QWidget* field = first->focusProxy() ? first->focusProxy() : first;
  if (auto* edit = qobject_cast<QLineEdit*>(field))
    edit->selectAll();
}

unsigned realCount(UserFunctionInterface* call, int index) {
  const double* data = nullptr;
  unsigned count = 0;
  sp_GetRealIfVector(call, index, &data, &count);
  return count;
}

unsigned stringCount(UserFunctionInterface* call, int index) {
  const char* const* data = nullptr;
  unsigned count = 0;
  sp_GetStringIfVector(call, index, &data, &count);
  return count;
}

bool refusesRowCount(unsigned rows, const char* function) {
  if (rows <= mostRows)
    return false;
  QMessageBox::warning(nullptr, QString::fromLatin1(function),
                       QCoreApplication::translate(
                           "RowBox", "The script asks for %1 rows; a box can show %2 at most.")
                           .arg(rows)
                           .arg(mostRows));
  return true;
}

QString captionAt(const char* const* texts, unsigned count, unsigned index) {
  return index < count ? QString::fromUtf8(texts[index]) : QString();
}
