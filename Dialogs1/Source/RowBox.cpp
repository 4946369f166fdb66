#include "RowBox.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr unsigned mostRows = 1000;
constexpr double tallestShare = 0.7; // of the screen; title bar and buttons want the rest

class RowScrollArea : public QScrollArea {
public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    const QSize contents = widget()->sizeHint();
    return {contents.width() + verticalScrollBar()->sizeHint().width(), height};
  }
  int height = 0;
};

} // namespace

bool refusesRowCount(unsigned rows, const QString& title) {
  if (rows <= mostRows)
    return false;
  QMessageBox::warning(nullptr, title,
                       QCoreApplication::translate("RowBox",
                                                   "The script asks for %1 rows; a box can "
                                                   "show %2 at most.")
                           .arg(rows)
                           .arg(mostRows));
  return true;
}

void scrollWhenTall(QWidget* contents) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  QLayout* layout = contents->parentWidget()->layout();
  const int tallest = screen ? int(screen->availableGeometry().height() * tallestShare) : 0;
  if (!screen || !layout || contents->sizeHint().height() <= tallest)
    return;
  auto* area = new RowScrollArea(contents->parentWidget());
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->height = tallest;
  delete layout->replaceWidget(contents, area);
  area->setWidget(contents);
}
