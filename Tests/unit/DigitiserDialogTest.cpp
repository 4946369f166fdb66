#include "Services/Digitiser/DigitiserDialog.h"
#include "Services/Digitiser/DigitiserView.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <gtest/gtest.h>

// The digitiser's window under mouse and keyboard.

namespace {

/// Axes from (50, 350), 10 units of x for 500 pixels and 30 of y for 300; a red line from (0, 6)
/// to (10, 16), and another from (0, 26) to (10, 26).
QImage graph() {
  QImage image(600, 400, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 1));
  painter.drawLine(QPointF(50, 350), QPointF(550, 350));
  painter.drawLine(QPointF(50, 50), QPointF(50, 350));
  painter.setPen(QPen(Qt::red, 3));
  painter.drawLine(QPointF(50, 290), QPointF(550, 190));
  painter.drawLine(QPointF(50, 90), QPointF(550, 90));
  return image;
}

class DigitiserWindow : public testing::Test {
protected:
  DigitiserWindow() : dialog(graph()) {
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    QCoreApplication::processEvents();
    view = dialog.findChild<DigitiserView*>();
  }

  template <class Widget> Widget* get(const char* name) {
    return dialog.findChild<Widget*>(QLatin1String(name));
  }
  /// Where a pixel of the picture is shown.
  QPoint at(double x, double y) const {
    return {qRound(x * view->zoom()) - view->horizontalScrollBar()->value(),
            qRound(y * view->zoom()) - view->verticalScrollBar()->value()};
  }
  void press(double x, double y) {
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, at(x, y));
  }
  void move(double x, double y) {
    QMouseEvent event(QEvent::MouseMove, at(x, y), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &event);
  }
  void release(double x, double y) {
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, at(x, y));
  }
  void click(double x, double y) {
    press(x, y);
    release(x, y);
  }
  void key(int code, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(code), modifiers);
  }
  /// Marks by mouse; what is typed with a mark in hand is its value.
  void calibrate() {
    const struct {
      double x, y;
      const char* value;
    } marks[] = {{50, 350, "0"}, {550, 350, "10"}, {50, 350, "0"}, {50, 50, "30"}};
    for (const auto& mark : marks) {
      click(mark.x, mark.y);
      QTest::keyClicks(view, QLatin1String(mark.value).mid(0, 1));
      QTest::keyClicks(QApplication::focusWidget(), QLatin1String(mark.value).mid(1));
      key(Qt::Key_Return);
    }
  }
  int rows() { return get<QTableView>("points")->model()->rowCount(); }
  double shownY(int row) {
    const auto* model = get<QTableView>("points")->model();
    return model->index(row, 1).data().toDouble();
  }

  DigitiserDialog dialog;
  DigitiserView* view = nullptr;
};

TEST_F(DigitiserWindow, CalibratesTracesAndAccepts) {
  calibrate();
  EXPECT_TRUE(get<QToolButton>("pointButton")->isChecked());
  get<QToolButton>("traceButton")->click();
  click(300, 240);
  EXPECT_TRUE(get<QPushButton>("okButton")->isEnabled());
  const int thin = rows();
  get<QSpinBox>("step")->setValue(20);
  get<QDoubleSpinBox>("thinning")->setValue(0);
  EXPECT_GT(rows(), thin) << "options act on the trace that stands";
  click(300, 30);
  EXPECT_TRUE(get<QLabel>("advice")->text().startsWith(QLatin1String("No curve")));
  get<QPushButton>("okButton")->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  ASSERT_GE(dialog.values().size(), 20u);
  for (const QPointF& value : dialog.values())
    EXPECT_NEAR(value.y(), 6 + value.x(), 0.15) << value.x();
}

TEST_F(DigitiserWindow, MarksThatMeetArePlacedAndDragged) {
  calibrate(); // Y1 went to where X1 lies already
  for (const char* name : {"x1Value", "x2Value", "y1Value", "y2Value"})
    EXPECT_FALSE(get<QLineEdit>(name)->text().isEmpty()) << name;
  get<QToolButton>("y2Button")->click();
  press(50, 50);
  move(50, 120);
  move(50, 200); // 150 pixels above the origin: the scale doubles
  release(50, 200);
  get<QToolButton>("pointButton")->click();
  click(300, 275);
  EXPECT_NEAR(shownY(0), 15, 0.4);
  key(Qt::Key_Z, Qt::ControlModifier); // the point
  key(Qt::Key_Z, Qt::ControlModifier); // the whole drag
  click(300, 275);
  EXPECT_NEAR(shownY(0), 7.5, 0.2);
  EXPECT_TRUE(get<QLabel>("position")->text().startsWith(QLatin1String("X = ")));
}

TEST_F(DigitiserWindow, AddsMovesNudgesAndRemovesPoints) {
  calibrate();
  click(100, 100);
  click(200, 100);
  EXPECT_EQ(rows(), 2);
  press(100, 100); // takes hold of what is there
  move(150, 150);
  move(300, 150);
  release(300, 150);
  ASSERT_EQ(rows(), 2);
  EXPECT_NEAR(dialog.values()[1].x(), 5, 0.05) << "it passed the other one";
  EXPECT_NEAR(dialog.values()[1].y(), 20, 0.1);
  const double before = dialog.values()[1].x();
  key(Qt::Key_Right);
  EXPECT_NEAR(dialog.values()[1].x() - before, 0.02, 1e-3) << "by one pixel";
  key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_NEAR(dialog.values()[1].y(), 21, 0.1) << "by ten";
  EXPECT_EQ(get<QTableView>("points")->selectionModel()->selectedRows().value(0).row(), 1);
  key(Qt::Key_Delete);
  EXPECT_EQ(rows(), 1);
  key(Qt::Key_Delete); // nothing in hand
  EXPECT_EQ(rows(), 1);
  click(5, 5);
  get<QTableView>("points")->selectAll();
  get<QPushButton>("removeButton")->click();
  EXPECT_EQ(rows(), 0);
}

TEST_F(DigitiserWindow, LosesHoldOfWhatIsUndone) {
  for (const bool isMark : {true, false}) {
    if (!isMark)
      calibrate();
    const bool couldUndo = get<QToolButton>("undoButton")->isEnabled();
    press(100, 100);
    key(Qt::Key_Z, Qt::ControlModifier);
    move(200, 200);
    key(Qt::Key_Delete);
    move(210, 200);
    release(210, 200);
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(get<QToolButton>("undoButton")->isEnabled(), couldUndo);
  }
}

TEST_F(DigitiserWindow, ZoomsAtTheCursorAndPans) {
  const QPoint cursor = at(400, 100);
  const double before = view->zoom();
  for (int turns = 0; turns < 8; ++turns) {
    QWheelEvent wheel(cursor, view->viewport()->mapToGlobal(cursor), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &wheel);
  }
  EXPECT_GT(view->zoom(), 5 * before);
  // To a pixel of the picture, which is several of the screen by now.
  EXPECT_LE((at(400, 100) - cursor).manhattanLength(), view->zoom())
      << "what was below the cursor stays there";

  const QPoint start = at(400, 100);
  QTest::mousePress(view->viewport(), Qt::MiddleButton, {}, start);
  QMouseEvent drag(QEvent::MouseMove, start - QPoint(30, -20), Qt::NoButton, Qt::MiddleButton, {});
  QApplication::sendEvent(view->viewport(), &drag);
  QTest::mouseRelease(view->viewport(), Qt::MiddleButton);
  EXPECT_EQ(at(400, 100), start + QPoint(-30, 20));
  QTest::keyPress(view, Qt::Key_Space);
  press(400, 100);
  const QPoint held = at(400, 100);
  QMouseEvent back(QEvent::MouseMove, held + QPoint(30, -20), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(view->viewport(), &back);
  QTest::mouseRelease(view->viewport(), Qt::LeftButton);
  QTest::keyRelease(view, Qt::Key_Space);
  EXPECT_EQ(at(400, 100), start);
  EXPECT_TRUE(dialog.values().empty());
  EXPECT_FALSE(get<QToolButton>("undoButton")->isEnabled()) << "panning marks nothing";

  click(400, 100);
  EXPECT_NEAR(view->cursorPlace().x(), 400, 0.5);
  get<QToolButton>("fitButton")->click();
  EXPECT_NEAR(view->zoom(), before, 1e-9);
  for (int i = 0; i < 60; ++i)
    view->zoomBy(2);
  EXPECT_LE(view->zoom(), 64);
  for (int i = 0; i < 60; ++i)
    view->zoomBy(0.5);
  EXPECT_GT(view->zoom(), 0.01);
  dialog.grab();
}

TEST_F(DigitiserWindow, EveryWidgetHasAName) {
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
    if (!(widget->focusPolicy() & Qt::TabFocus) ||
        widget->objectName().startsWith(QLatin1String("qt_")))
      continue;
    QAccessibleInterface* accessible =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
    ASSERT_TRUE(accessible);
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
        << widget->objectName().toStdString();
  }
}

} // namespace
