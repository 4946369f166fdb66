#include "HostWidgets/Plotter.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Axis axis(double low, double high, unsigned lines = 4, unsigned labels = 0) {
  Axis made;
  made.setAxisParams(low, high, lines, 0, 0, labels);
  return made;
}

/// A plotter of 0 to 100 by 0 to 10, with a grid of 201 by 101 pixels from (20, 10) on.
class PlotterTest : public testing::Test {
protected:
  PlotterTest() {
    plotter.setMargins(20, 10, 30, 40);
    plotter.resize(251, 151);
    plotter.initializeAxes(axis(0, 100), axis(0, 10));
    plotter.show();
    QApplication::setActiveWindow(&plotter);
    plotter.setFocus();
  }

  static QPoint at(double x, double y) { return {20 + qRound(2 * x), 110 - qRound(10 * y)}; }
  void mouse(QEvent::Type type, QPoint position, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent event(type, position, plotter.mapToGlobal(position),
                      type == QEvent::MouseMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(&plotter, &event);
  }
  void drag(QPoint from, QPoint to) {
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
  }
  bool wheel(QPoint position, int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(position, plotter.mapToGlobal(position), QPoint(), QPoint(0, delta),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    event.ignore();
    QApplication::sendEvent(&plotter, &event);
    return event.isAccepted();
  }
  bool key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, code, modifiers);
    event.accept();
    QApplication::sendEvent(&plotter, &event);
    return event.isAccepted();
  }
  void expectView(double left, double right, double bottom, double top, double error = 1e-9) {
    EXPECT_NEAR(plotter.xMinimum(), left, error);
    EXPECT_NEAR(plotter.xMaximum(), right, error);
    EXPECT_NEAR(plotter.yMinimum(), bottom, error);
    EXPECT_NEAR(plotter.yMaximum(), top, error);
  }
  QImage picture() { return plotter.grab().toImage(); }
  /// How many pixels of a colour there are within a box.
  int count(const QColor& colour, const QRect& box) {
    const QImage image = picture();
    int found = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
      for (int x = box.left(); x <= box.right(); ++x)
        found += image.pixelColor(x, y) == colour;
    return found;
  }

  Plotter plotter{nullptr, "plotter"};
};

TEST_F(PlotterTest, OnePeakOfAMillionPointsIsSeen) {
  std::vector<double> points;
  for (int i = 0; i < 1000000; ++i)
    points.insert(points.end(), {i * 1e-4, i == 654321 ? 9.0 : 2.0});
  plotter.setCurveData(0, points, QPen(Qt::red));
  const QPoint peak = at(65.4321, 9);
  EXPECT_GE(count(Qt::red, QRect(peak.x() - 2, at(0, 8.9).y(), 5, 60)), 55) << "not pale";
  EXPECT_GE(count(Qt::red, QRect(20, at(0, 2).y() - 1, 200, 3)), 190) << "and the rest";
  plotter.setCurveData(0, points, QPen(Qt::red, 3));
  plotter.setXRange(65.4320, 65.4322); // the peak and its neighbours at the ends
  EXPECT_GE(count(Qt::red, QRect(20, at(0, 8.9).y(), 201, 8)), 8);
  plotter.setCurveData(0, {}, QPen());
  EXPECT_EQ(count(Qt::red, plotter.rect()), 0);
}

TEST_F(PlotterTest, CurvesLieOnEachOtherByIndex) {
  plotter.setCurveData(7, {0, 5, 100, 5}, QPen(Qt::red));
  plotter.setCurveData(-2, {0, 5, 100, 5}, QPen(Qt::blue));
  EXPECT_EQ(count(Qt::blue, plotter.rect()), 0);
  EXPECT_GE(count(Qt::red, plotter.rect()), 190);
  const double x[] = {0, 100}, y[] = {3, 3};
  plotter.setCurveData(8, x, y, 2, QPen(Qt::blue));
  EXPECT_GE(count(Qt::blue, QRect(20, at(0, 3).y() - 1, 201, 3)), 190);
}

TEST_F(PlotterTest, GridStandsInItsMarginsAndColours) {
  plotter.setBackgroundColour(Qt::yellow);
  plotter.setMajorGridColor(Qt::green);
  plotter.setMinorGridColour(Qt::cyan);
  plotter.setTextColour(Qt::blue);
  plotter.clearFocus();
  const QImage image = picture();
  for (const double x : {20.0, 40.0, 60.0, 80.0})
    EXPECT_EQ(image.pixelColor(at(x, 3.3)), QColor(Qt::green)) << x;
  EXPECT_EQ(image.pixelColor(at(33, 4)), QColor(Qt::green));
  EXPECT_EQ(image.pixelColor(at(33, 0.5)), QColor(Qt::cyan));
  EXPECT_EQ(image.pixelColor(at(33, 0.7)), QColor(Qt::yellow));
  for (const QPoint outside : {QPoint(18, 60), QPoint(60, 8), QPoint(223, 60), QPoint(60, 113)})
    EXPECT_EQ(image.pixelColor(outside), QColor(Qt::yellow));
  const QRect below(0, 113, 251, 38);
  EXPECT_EQ(count(Qt::blue, below), 0);
  plotter.initializeAxes(axis(0, 100, 4, 2), axis(0, 10));
  EXPECT_GT(count(Qt::blue, below), 20) << "labels show with a 2";
}

TEST_F(PlotterTest, ColoursFollowThePalette) {
  const QImage light = picture();
  QPalette dark = plotter.palette();
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Text, Qt::white);
  plotter.setCurveData(0, {0, 5.5, 100, 5.5}, QPen(QColor(0, 0, 120), 3));
  EXPECT_GT(count(QColor(0, 0, 120), plotter.rect()), 300);
  plotter.setPalette(dark);
  EXPECT_EQ(picture().pixelColor(2, 2), QColor(20, 20, 20));
  EXPECT_NE(light.pixelColor(at(20, 5.3)), picture().pixelColor(at(20, 5.3)));
  EXPECT_GT(picture().pixelColor(at(50, 5.5)).lightnessF(), 0.3) << "lost on its background";
  plotter.setBackgroundColour(Qt::black);
  EXPECT_EQ(picture().pixelColor(at(50, 5.5)), QColor(0, 0, 120)) << "chosen to go with it";
}

TEST_F(PlotterTest, MouseZooms) {
  drag(at(20, 8), at(60, 2));
  expectView(20, 60, 2, 8, 0.6);
  mouse(QEvent::MouseButtonDblClick, at(50, 5));
  expectView(0, 100, 0, 10);
  drag(at(60, 5), at(20, 5.2)); // backwards, and flat
  EXPECT_NEAR(plotter.xMinimum(), 20, 0.6);
  EXPECT_NEAR(plotter.xMaximum(), 60, 0.6);
  EXPECT_EQ(plotter.yMaximum(), 10);
  for (int i = 1; i < 30; ++i) { // the other direction is left as it is, to the last digit
    plotter.setXRange(0, 100);
    plotter.setYRange(1.0 / i, 7.0 / 3 * i);
    const double bottom = plotter.yMinimum();
    const double top = plotter.yMaximum();
    drag(at(20, 5), at(60, 5));
    EXPECT_EQ(plotter.yMinimum(), bottom);
    EXPECT_EQ(plotter.yMaximum(), top);
  }
  plotter.resetZoom();
  drag(at(50, 2), at(51, 8)); // narrow
  EXPECT_EQ(plotter.xMaximum(), 100);
  EXPECT_NEAR(plotter.yMinimum(), 2, 0.2);
  plotter.resetZoom();

  struct {
    const char* what;
    QPoint from, to;
  } const idle[] = {{"a click", at(50, 5), at(50, 5)},
                    {"a tremble", at(50, 5), at(51, 5.1)},
                    {"beside the grid", QPoint(5, 140), at(50, 5)}};
  for (const auto& row : idle) {
    drag(row.from, row.to);
    SCOPED_TRACE(row.what);
    expectView(0, 100, 0, 10);
  }
  mouse(QEvent::MouseButtonPress, at(20, 8));
  mouse(QEvent::MouseMove, at(60, 2));
  EXPECT_TRUE(key(Qt::Key_Escape));
  mouse(QEvent::MouseButtonRelease, at(60, 2));
  expectView(0, 100, 0, 10);
  EXPECT_FALSE(key(Qt::Key_Escape)) << "the dialog's own";
  drag(at(50, 5), QPoint(5000, -5000)); // let go beside the window
  expectView(50, 100, 5, 10, 0.6);
}

TEST_F(PlotterTest, WheelZoomsAtTheCursor) {
  EXPECT_TRUE(wheel(at(25, 5), 120));
  expectView(5, 85, 0, 10, 0.3);
  EXPECT_TRUE(wheel(at(25, 5), -60) && wheel(at(25, 5), -60)); // a fine wheel
  expectView(0, 100, 0, 10, 1e-6);
  wheel(at(50, 5), 120, Qt::ControlModifier);
  expectView(0, 100, 1, 9, 0.1);
  plotter.resetZoom();
  wheel(at(50, 5), -120, Qt::ShiftModifier);
  expectView(10, 110, 0, 10);
  for (int i = 0; i < 100; ++i)
    wheel(at(50, 5), -120, Qt::ShiftModifier);
  EXPECT_NEAR(plotter.xMinimum(), 50, 1e-9) << "half of the axis stays in sight";
  EXPECT_FALSE(wheel(at(50, 5), 0));
}

TEST_F(PlotterTest, ZoomEndsBeforeNumbersDo) {
  plotter.setCurveData(0, {0, 0, 100, 10}, QPen(Qt::red));
  for (const int delta : {120, -120}) {
    for (int i = 0; i < 300; ++i) {
      wheel(at(30, 5), delta);
      wheel(at(30, 5), delta, Qt::ControlModifier);
    }
    picture();
    const double width = plotter.xMaximum() - plotter.xMinimum();
    EXPECT_GE(width, 1e-8);
    EXPECT_LE(width, 1.0001e4);
    const double before = plotter.xMinimum();
    wheel(at(90, 5), delta);
    EXPECT_NEAR(plotter.xMinimum(), before, width) << "stands still at the limit";
    plotter.resetZoom();
  }
}

TEST_F(PlotterTest, KeysZoomAndScroll) {
  struct Case {
    int key;
    double left, right, bottom, top;
  } const cases[] = {
      {Qt::Key_Plus, 25, 75, 2.5, 7.5},  {Qt::Key_Right, 30, 80, 2.5, 7.5},
      {Qt::Key_Left, 25, 75, 2.5, 7.5},  {Qt::Key_Up, 25, 75, 3, 8},
      {Qt::Key_Down, 25, 75, 2.5, 7.5},  {Qt::Key_Equal, 37.5, 62.5, 3.75, 6.25},
      {Qt::Key_Minus, 25, 75, 2.5, 7.5}, {Qt::Key_0, 0, 100, 0, 10},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.key);
    EXPECT_TRUE(key(row.key));
    expectView(row.left, row.right, row.bottom, row.top);
  }
  EXPECT_FALSE(key(Qt::Key_Return)) << "the default button's";
  EXPECT_FALSE(key(Qt::Key_Plus, Qt::ControlModifier));
}

TEST_F(PlotterTest, FixedDirectionsStand) {
  plotter.setZoomDirections(Qt::Horizontal);
  drag(at(20, 8), at(60, 2));
  key(Qt::Key_Plus);
  EXPECT_FALSE(wheel(at(50, 5), 120, Qt::ControlModifier));
  EXPECT_FALSE(key(Qt::Key_Up));
  expectView(30, 50, 0, 10, 0.6);
  plotter.resetZoom();
  drag(at(50, 1), at(50, 9));
  expectView(0, 100, 0, 10);
}

// From 1 to 10k, 50 pixels a decade.
TEST_F(PlotterTest, LogarithmicAxesGoByDecades) {
  Axis decades = axis(1, 1e4);
  decades.setLogarithmic(true);
  plotter.initializeAxes(decades, axis(0, 10));
  expectView(1, 1e4, 0, 10, 1e-9);
  plotter.setCurveData(0, {-5, 5, 0, 5, 1, 5, 100, 0, 1e4, 10}, QPen(Qt::red, 1));
  EXPECT_GT(count(Qt::red, QRect(118, 108, 5, 5)), 0) << "100 stands in the middle";

  mouse(QEvent::MouseMove, at(50, 5));
  EXPECT_EQ(plotter.readOut().toStdString(), "x = 100, y = 5");
  wheel(at(50, 5), 120);
  EXPECT_NEAR(std::log10(plotter.xMinimum()), 0.4, 1e-6);
  EXPECT_NEAR(std::log10(plotter.xMaximum()), 3.6, 1e-6);
  key(Qt::Key_0);
  drag(at(25, 5), at(75, 5));
  EXPECT_NEAR(plotter.xMinimum(), 10, 0.5);
  EXPECT_NEAR(plotter.xMaximum(), 1e3, 50);
  key(Qt::Key_Right);
  EXPECT_NEAR(plotter.xMaximum() / plotter.xMinimum(), 100, 5);
  for (int i = 0; i < 100; ++i)
    key(Qt::Key_Minus);
  picture();
  EXPECT_GT(plotter.xMinimum(), 0);
  EXPECT_TRUE(std::isfinite(plotter.xMaximum()));
  for (int i = 0; i < 100; ++i)
    key(Qt::Key_Plus);
  EXPECT_LT(plotter.xMinimum(), plotter.xMaximum());
  picture();
  plotter.setXRange(-1, 0);
  expectView(1, 10, plotter.yMinimum(), plotter.yMaximum());

  // Two that share their range settle, though values and decades round.
  Plotter other;
  other.initializeAxes(decades, axis(0, 1));
  plotter.shareXRange(&other);
  QSignalSpy changes(&other, &Plotter::xRangeChanged);
  plotter.setXRange(3, 777.7);
  EXPECT_EQ(changes.size(), 1);
  EXPECT_NEAR(other.xMaximum(), 777.7, 1e-6);

  Axis rounded = axis(3, 4e3);
  rounded.setLogarithmic(true);
  rounded.adjustAxis();
  EXPECT_NEAR(rounded.minimum(), 1, 1e-12);
  EXPECT_NEAR(rounded.maximum(), 1e4, 1e-8);
  const Axis copy(rounded);
  rounded.setLogarithmic(false);
  EXPECT_TRUE(copy.isLogarithmic());
  EXPECT_NEAR(rounded.maximum(), 1e4, 1e-8);
}

TEST_F(PlotterTest, StripsShareTheirTime) {
  Plotter second, third;
  for (Plotter* other : {&second, &third})
    other->initializeAxes(axis(0, 100), axis(0, 1.4, 0));
  plotter.shareXRange(&second);
  second.shareXRange(&third);
  third.shareXRange(&plotter); // a ring: nothing goes round for ever
  plotter.shareXRange(&second);
  QSignalSpy ranges(&third, &Plotter::xRangeChanged);
  wheel(at(50, 5), 120);
  ASSERT_EQ(ranges.size(), 1);
  EXPECT_EQ(third.xMinimum(), plotter.xMinimum());
  EXPECT_EQ(ranges[0][1].toDouble(), plotter.xMaximum());
  third.setXRange(7, 3);
  expectView(3, 7, 0, 10);
  third.setXRange(nan, 3);
  second.setXRange(3, 7); // no change
  EXPECT_EQ(ranges.size(), 2);
  plotter.resetZoom();
  EXPECT_EQ(second.xMaximum(), 100);
}

TEST_F(PlotterTest, AxesAreFollowedEvenWhenTheyAreGone) {
  {
    Axis x = axis(0, 9.7, 3);
    plotter.initializeAxes(x, axis(0, 1));
    Axis copy = x;
    copy.setAxisParams(50, 60, 3, 0, 0, 0);
    EXPECT_EQ(plotter.xMaximum(), 9.7);
    x.adjustAxis();
    EXPECT_EQ(x.maximum(), 10);
    EXPECT_EQ(plotter.xMaximum(), 10);
    x = copy;
    EXPECT_EQ(plotter.xMinimum(), 50);
  }
  plotter.setXRange(1, 2);
  plotter.resetZoom();
  EXPECT_EQ(plotter.xMaximum(), 60);
}

TEST_F(PlotterTest, ReadOutTellsTheCursor) {
  QSignalSpy moves(&plotter, &Plotter::cursorMoved);
  mouse(QEvent::MouseMove, at(47, 2));
  EXPECT_EQ(plotter.readOut(), QStringLiteral("x = 47, y = 2"));
  QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&plotter);
  ASSERT_TRUE(chart);
  EXPECT_EQ(chart->role(), QAccessible::Chart);
  EXPECT_EQ(chart->text(QAccessible::Value), plotter.readOut());
  const QImage with = picture();
  mouse(QEvent::MouseMove, QPoint(3, 3));
  EXPECT_EQ(plotter.readOut(), QString());
  EXPECT_TRUE(std::isnan(moves.last()[0].toDouble()));
  EXPECT_NE(with, picture());
  key(Qt::Key_Right, Qt::ControlModifier); // from the middle of the grid
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_NEAR(moves.last()[0].toDouble(), 54, 0.3);
  EXPECT_NEAR(moves.last()[1].toDouble(), 4.2, 0.06);
  for (int i = 0; i < 100; ++i)
    key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(moves.last()[0].toDouble(), 0) << "stays on the grid";
}

TEST_F(PlotterTest, NothingHandedInHurts) {
  const double odd[] = {nan,    infinity, -infinity,
                        0.0,    -0.0,     1e-300,
                        1e300,  5e-324,   std::numeric_limits<double>::max(),
                        -1e308, 1.0,      42.0};
  std::vector<double> points;
  for (const double x : odd)
    for (const double y : odd)
      points.insert(points.end(), {x, y});
  points.push_back(1); // no y to it
  plotter.setCurveData(0, points, QPen(Qt::red, 3));
  plotter.setCurveData(1, nullptr, nullptr, 5, QPen());
  plotter.setCurveData(2, points.data(), points.data(), -5, QPen(Qt::NoPen));
  plotter.shareXRange(nullptr);
  plotter.shareXRange(&plotter);
  for (const double low : odd)
    for (const double high : odd) {
      plotter.initializeAxes(axis(low, high, 4000000000u, 2), axis(high, low, 3, 2));
      plotter.setXRange(low, high);
      plotter.setYRange(low, high);
      wheel(at(50, 5), 120);
      picture();
      ASSERT_TRUE(std::isfinite(plotter.xMinimum()) && std::isfinite(plotter.yMaximum()));
      ASSERT_LT(plotter.xMinimum(), plotter.xMaximum());
    }
  for (const int margin : {0, -50, 5000, std::numeric_limits<int>::max()}) {
    plotter.setMargins(margin, margin, margin, margin);
    picture();
    drag(QPoint(1, 1), QPoint(200, 100));
  }
  plotter.resize(0, 0);
  picture();
}

TEST_F(PlotterTest, ZoomOnlyPaints) {
  QWidget window;
  plotter.setParent(&window);
  plotter.show();
  window.show();
  QApplication::processEvents();
  struct Counter : QObject {
    int layouts = 0, paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      layouts += event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
      paints += event->type() == QEvent::Paint;
      return false;
    }
  } counter;
  window.installEventFilter(&counter);
  plotter.installEventFilter(&counter);
  for (int i = 0; i < 5; ++i)
    key(Qt::Key_Plus);
  QTest::qWait(20);
  EXPECT_EQ(counter.layouts, 0);
  EXPECT_GE(counter.paints, 1);
  EXPECT_LE(counter.paints, 5); // of both
  plotter.setParent(nullptr);
}

} // namespace
