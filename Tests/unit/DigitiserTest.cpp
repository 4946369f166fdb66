#include "Services/Digitiser/CurveTracer.h"
#include "Services/Digitiser/DigitiserModel.h"
#include "Services/Digitiser/GraphMap.h"
#include "Services/Digitiser/PictureFile.h"
#include "Services/Digitiser/Thinning.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

// The digitiser without its window: from pictures with a known truth back to values.

namespace {

using Curve = std::function<double(double)>; // from x to y, in values

QString text(const char* utf8) {
  return QString::fromUtf8(utf8);
}

/// A graph as a data sheet has it, with what is to come out of it.
struct Sheet {
  double turn = 0; // degrees
  double skew = 0; // sideways shift of the y axis for each pixel down
  bool logX = false, logY = false;
  QPointF low{0, 0}, high{10, 100}; // values at the corners of the frame
  Curve curve = [](double x) { return 10 + 0.8 * x * x; };
  Curve other; // of the same colour
  double pen = 2.5;
  QColor ink{200, 30, 30};
  QColor grid{150, 150, 150};
  bool gridOnTop = false;
  double noise = 0;      // standard deviation of each channel
  int jpegQuality = 100; // below 100: through a JPEG file
  bool antialias = true;
  Qt::PenStyle style = Qt::SolidLine;

  static constexpr double left = 90, top = 40, width = 620, height = 440; // of the frame

  QTransform turned() const {
    return QTransform(1, 0, skew, 1, 0, 0) *
           QTransform().translate(400, 280).rotate(turn).translate(-400, -280);
  }
  static double share(double value, double from, double to, bool log) {
    return log ? std::log(value / from) / std::log(to / from) : (value - from) / (to - from);
  }
  static double along(double part, double from, double to, bool log) {
    return log ? from * std::pow(to / from, part) : from + part * (to - from);
  }
  double x(double part) const { return along(part, low.x(), high.x(), logX); }
  /// The curve in the picture.
  QVector<QPointF> truth() const {
    QVector<QPointF> line;
    for (int i = 0; i <= 1000; ++i)
      line.append(pixel({x(i / 1000.0), curve(x(i / 1000.0))}));
    return line;
  }
  double area(double from, double to) const { // below the curve
    double sum = 0;
    for (int i = 0; i < 4000; ++i) {
      const double a = along(i / 4000.0, from, to, logX);
      const double b = along((i + 1) / 4000.0, from, to, logX);
      sum += (b - a) * curve((a + b) / 2);
    }
    return sum;
  }
  QPoint seedAt(double part) const {
    const QPointF at = pixel({x(part), curve(x(part))});
    return {int(at.x()), int(at.y())};
  }
  QPointF flat(const QPointF& value) const {
    return {left + width * share(value.x(), low.x(), high.x(), logX),
            top + height * (1 - share(value.y(), low.y(), high.y(), logY))};
  }
  QPointF pixel(const QPointF& value) const { return turned().map(flat(value)); }
  GraphMap map() const {
    const auto scale = [](bool log) { return log ? AxisScale::Logarithmic : AxisScale::Linear; };
    return *GraphMap::fromAxes(
        {pixel(low), pixel({high.x(), low.y()}), low.x(), high.x(), scale(logX)},
        {pixel(low), pixel({low.x(), high.y()}), low.y(), high.y(), scale(logY)});
  }

  QImage picture() const {
    QImage image(800, 560, QImage::Format_RGB32);
    image.fill(QColor(252, 251, 246));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, antialias);
    painter.setTransform(turned());
    const auto drawGrid = [&] {
      for (int i = 0; i <= 10; ++i) {
        painter.setPen(QPen(i % 10 == 0 ? QColor(30, 30, 30) : grid, i % 10 == 0 ? 2 : 1));
        painter.drawLine(QPointF(left + width * i / 10, top),
                         QPointF(left + width * i / 10, top + height));
        painter.drawLine(QPointF(left, top + height * i / 10),
                         QPointF(left + width, top + height * i / 10));
      }
    };
    if (!gridOnTop)
      drawGrid();
    painter.setPen(QPen(ink, pen, style, Qt::FlatCap));
    for (const Curve& one : {curve, other}) {
      QPainterPath path;
      for (int i = 0; one && i <= 2000; ++i) {
        const QPointF at = flat({x(i / 2000.0), one(x(i / 2000.0))});
        i == 0 ? path.moveTo(at) : path.lineTo(at);
      }
      painter.drawPath(path);
    }
    if (gridOnTop)
      drawGrid();
    painter.end();
    if (noise > 0) {
      std::mt19937 random(7);
      std::normal_distribution<double> by(0, noise);
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
          const QRgb rgb = image.pixel(x, y);
          const auto shaken = [&](int c) {
            return qBound(0, c + int(std::lround(by(random))), 255);
          };
          image.setPixel(x, y, qRgb(shaken(qRed(rgb)), shaken(qGreen(rgb)), shaken(qBlue(rgb))));
        }
    }
    if (jpegQuality < 100) {
      QBuffer file;
      file.open(QIODevice::ReadWrite);
      image.save(&file, "JPG", jpegQuality);
      image = QImage::fromData(file.data(), "JPG").convertToFormat(QImage::Format_RGB32);
    }
    return image;
  }
};

/// The distance of a point from a polyline that lies in the order of x.
double distanceTo(const QVector<QPointF>& line, const QPointF& point) {
  double least = std::numeric_limits<double>::infinity();
  for (int i = 1; i < line.size(); ++i) {
    const QPointF a = line[i - 1], way = line[i] - a;
    const double square = QPointF::dotProduct(way, way);
    const double part =
        square > 0 ? qBound(0.0, QPointF::dotProduct(point - a, way) / square, 1.0) : 0;
    least = std::min(least, QLineF(a + part * way, point).length());
  }
  return least;
}

TEST(GraphMap, UndoesTurnSkewAndScale) {
  for (const double turn : {-3.0, 0.0, 1.7, 3.0, 88.0, 180.0})
    for (const double skew : {-0.04, 0.0, 0.04})
      for (const int logs : {0, 1, 2, 3}) {
        Sheet sheet;
        sheet.turn = turn;
        sheet.skew = skew;
        sheet.logX = logs & 1;
        sheet.logY = logs & 2;
        sheet.low = {0.1, 1e-12};
        sheet.high = {1000, 1e-8};
        // Marks need not be the axes' ends, nor lie on lines that meet at the origin.
        const auto scale = [](bool log) {
          return log ? AxisScale::Logarithmic : AxisScale::Linear;
        };
        const auto map = GraphMap::fromAxes(
            {sheet.pixel({500, 5e-9}), sheet.pixel({2, 5e-9}), 500, 2, scale(sheet.logX)},
            {sheet.pixel({30, 2e-12}), sheet.pixel({30, 3e-9}), 2e-12, 3e-9, scale(sheet.logY)});
        ASSERT_TRUE(map);
        for (const QPointF& value : {QPointF(0.1, 1e-12), QPointF(7, 4e-10), QPointF(1000, 1e-8)}) {
          const QPointF pixel = sheet.pixel(value);
          EXPECT_NEAR(map->toValues(pixel).x(), value.x(), 1e-9 * 1000) << turn << ' ' << skew;
          EXPECT_NEAR(map->toValues(pixel).y(), value.y(), 1e-9 * 1e-8) << turn << ' ' << skew;
          EXPECT_LT(QLineF(map->toPicture(value), pixel).length(), 1e-6);
        }
        EXPECT_NEAR(map->alongX(sheet.pixel({1000, 1})) - map->alongX(sheet.pixel({0.1, 1})), 620,
                    1e-5);
      }
}

TEST(GraphMap, RefusesWhatGivesNoDirection) {
  const double infinity = std::numeric_limits<double>::infinity();
  const auto linear = AxisScale::Linear, log = AxisScale::Logarithmic;
  const struct {
    AxisMarks marks;
    AxisFault fault;
  } cases[] = {
      {{{0, 0}, {9, 0}, 0, 1, linear}, AxisFault::None},
      {{{0, 0}, {0.5, 0.5}, 0, 1, linear}, AxisFault::SamePlace},
      {{{0, 0}, {std::nan(""), 0}, 0, 1, linear}, AxisFault::SamePlace},
      {{{0, 0}, {9, 0}, 5, 5, linear}, AxisFault::SameValue},
      {{{0, 0}, {9, 0}, 0, 0, linear}, AxisFault::SameValue},
      {{{0, 0}, {9, 0}, 1e300, 1e300 * (1 + 1e-15), log}, AxisFault::SameValue},
      {{{0, 0}, {9, 0}, 0, 1, log}, AxisFault::NotPositive},
      {{{0, 0}, {9, 0}, -2, -1, log}, AxisFault::NotPositive},
      {{{0, 0}, {9, 0}, 1e-300, 1e300, log}, AxisFault::None},
      {{{0, 0}, {9, 0}, -1e308, 1e308, linear}, AxisFault::NoNumber},
      {{{0, 0}, {9, 0}, 0, infinity, linear}, AxisFault::NoNumber},
      {{{0, 0}, {9, 0}, std::nan(""), 1, linear}, AxisFault::NoNumber},
  };
  const AxisMarks up{{0, 0}, {0, -9}, 0, 1, linear};
  for (const auto& one : cases) {
    EXPECT_EQ(faultOf(one.marks), one.fault) << &one - cases;
    EXPECT_EQ(GraphMap::fromAxes(one.marks, up).has_value(), one.fault == AxisFault::None);
  }
  EXPECT_FALSE(
      GraphMap::fromAxes({{0, 0}, {100, 8}, 0, 1, linear}, {{0, 0}, {-100, 0}, 0, 1, linear}));
  EXPECT_TRUE(
      GraphMap::fromAxes({{0, 0}, {100, 9}, 0, 1, linear}, {{0, 0}, {-100, 0}, 0, 1, linear}));
}

TEST(GraphMap, ValuesAscend) {
  const AxisMarks x{{0, 0}, {100, 0}, 0, 10, AxisScale::Linear};
  const AxisMarks y{{0, 0}, {0, -100}, 0, 10, AxisScale::Linear};
  const auto map = *GraphMap::fromAxes(x, y);
  const auto merged =
      graphValues(map, {{30, -10}, {10, -20}, {10.02, -40}, {10.05, -60}, {10.2, -5}});
  ASSERT_EQ(merged.size(), 3u);
  EXPECT_NEAR(merged[0].x(), 1.00233, 1e-4);
  EXPECT_NEAR(merged[0].y(), 4, 1e-12);
  EXPECT_NEAR(merged[1].x(), 1.02, 1e-12);
  EXPECT_NEAR(merged[2].x(), 3, 1e-12);

  // Marked against the picture's direction, values ascend all the same.
  const auto mirrored = *GraphMap::fromAxes({{0, 0}, {100, 0}, 10, 0, AxisScale::Linear}, y);
  const auto values = graphValues(mirrored, {{20, 0}, {10, 0}, {30, 0}});
  ASSERT_EQ(values.size(), 3u);
  EXPECT_NEAR(values.front().x(), 7, 1e-12);
  EXPECT_NEAR(values.back().x(), 9, 1e-12);

  // No infinite value, and none twice where a number cannot tell them apart.
  const auto steep =
      *GraphMap::fromAxes({{0, 0}, {2, 0}, 1e-100, 1e100, AxisScale::Logarithmic}, y);
  EXPECT_EQ(graphValues(steep, {{1, 0}, {1000, 0}}).size(), 1u);
  const auto offset =
      *GraphMap::fromAxes({{0, 0}, {100, 0}, 1e15, 1e15 + 10, AxisScale::Linear}, y);
  const auto apart = graphValues(offset, {{50, 0}, {50.5, 0}, {51, 0}, {60, 0}});
  for (std::size_t i = 1; i < apart.size(); ++i)
    EXPECT_GT(apart[i].x(), apart[i - 1].x());
}

/// The points that a click gives, before the axes are known.
QVector<QPointF> traced(const QImage& picture, const QPoint& seed,
                        const TraceOptions& options = {}) {
  return chosenPoints(traceCurve(picture, seed, options).line, options, nullptr);
}

QVector<QPointF> thinned(const QVector<QPointF>& line, double tolerance) {
  return chosenPoints(line, {50, 1, 12, tolerance}, nullptr);
}

TEST(Thinning, StaysWithinItsTolerance) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> jitter(-1, 1);
  const std::function<double(double)> shapes[] = {
      [](double x) { return 100 * std::sin(x / 40); },
      [](double x) { return x < 200 ? 300.0 : 20.0; }, // a cliff
      [](double x) { return 4000 / (x + 1); },
      [&](double) { return 3 * jitter(random); },
  };
  for (const auto& shape : shapes)
    for (const double tolerance : {0.1, 0.4, 2.0}) {
      QVector<QPointF> line;
      for (int i = 0; i < 400; ++i)
        line.append({double(i), shape(i)});
      const QVector<QPointF> thin = thinned(line, tolerance);
      EXPECT_EQ(thin.first(), line.first());
      EXPECT_EQ(thin.last(), line.last());
      for (const QPointF& point : line)
        EXPECT_LE(distanceTo(thin, point), tolerance * 1.0001) << &shape - shapes;
    }
  QVector<QPointF> straight;
  for (int i = 0; i < 100'000; ++i)
    straight.append({double(i), 0.25 * i});
  EXPECT_EQ(thinned(straight, 0.1).size(), 2);
  EXPECT_EQ(thinned(straight, 0).size(), straight.size());
  EXPECT_EQ(thinned(straight.mid(0, 2), 5).size(), 2);
  EXPECT_TRUE(thinned({}, 1).isEmpty());
}

/// A sheet whose curve is traced from the middle. All points lie within `pixels` of the truth, and
/// the ends within `ends` columns of the frame.
struct TraceCase {
  const char* name;
  Sheet sheet;
  double pixels;
  double ends = 8;
  TraceOptions options{};
};

class Tracing : public testing::TestWithParam<TraceCase> {};

TEST_P(Tracing, RecoversTheCurve) {
  const TraceCase& one = GetParam();
  const Sheet& sheet = one.sheet;
  const QVector<QPointF> points = traced(sheet.picture(), sheet.seedAt(0.53), one.options);
  ASSERT_GE(points.size(), 3);
  const QVector<QPointF> truth = sheet.truth();
  for (const QPointF& point : points) {
    // Where a line ends, its end cuts columns short.
    const bool isEnd = point == points.first() || point == points.last();
    EXPECT_LE(distanceTo(truth, point), isEnd ? std::max(1.1, one.pixels) : one.pixels)
        << point.x() << ' ' << point.y();
  }
  EXPECT_LT(points.first().x() - truth.first().x(), one.ends);
  EXPECT_LT(truth.last().x() - points.last().x(), one.ends);
  for (int i = 1; i < points.size(); ++i)
    EXPECT_GT(points[i].x(), points[i - 1].x());

  // The same in values: relative to an axis, no more than that many of its pixels.
  const GraphMap map = sheet.map();
  for (const QPointF& value : graphValues(map, points))
    EXPECT_LE(distanceTo(truth, sheet.pixel(value)), std::max(1.1, one.pixels) + 0.01);
}

Sheet capacitance() { // a MOSFET's, over voltage, on logarithmic axes
  Sheet sheet;
  sheet.logX = sheet.logY = true;
  sheet.low = {0.1, 1e-11};
  sheet.high = {1000, 1e-8};
  sheet.curve = [](double v) {
    return 40e-12 + 4e-9 / std::pow(1 + v / 0.9, 0.5) / (1 + std::pow(v / 40, 4));
  };
  return sheet;
}

/// What the digitiser gives for a click, against the truth.
struct Measured {
  Trace trace;
  int points = 0;
  double off = 0;     // pixels of the farthest point
  double area = 0;    // relative error of the integral
  bool whole = false; // from one side of the frame to the other
  bool asks() const { return trace.unclearLeft || trace.unclearRight; }
};
Measured measured(const Sheet& sheet, const QPoint& seed) {
  Measured found{traceCurve(sheet.picture(), seed, {})};
  const GraphMap map = sheet.map();
  const QVector<QPointF> points = chosenPoints(found.trace.line, {}, &map);
  const QVector<QPointF> truth = sheet.truth();
  found.points = points.size();
  if (points.size() < 3)
    return found;
  for (const QPointF& point : points)
    found.off = std::max(found.off, distanceTo(truth, point));
  found.whole =
      points.first().x() - truth.first().x() < 8 && truth.last().x() - points.last().x() < 8;
  const std::vector<QPointF> values = graphValues(map, points);
  double sum = 0;
  for (std::size_t i = 1; i < values.size(); ++i)
    sum += (values[i].x() - values[i - 1].x()) * (values[i].y() + values[i - 1].y()) / 2;
  const double from = sheet.logX ? values.front().x() : std::max(0.0, values.front().x());
  found.area = sum / sheet.area(from, values.back().x()) - 1;
  return found;
}

template <class Action> Sheet with(Sheet sheet, Action action) {
  action(sheet);
  return sheet;
}

INSTANTIATE_TEST_SUITE_P(
    Sheets, Tracing,
    testing::Values(
        TraceCase{"plain", Sheet(), 0.35},
        TraceCase{"bitmap", with(Sheet(), [](Sheet& s) { s.antialias = false; }), 0.75},
        TraceCase{"logarithmic", capacitance(), 0.4},
        TraceCase{"turnedRight", with(capacitance(), [](Sheet& s) { s.turn = 3; }), 0.4},
        TraceCase{"turnedLeft",
                  with(capacitance(),
                       [](Sheet& s) {
                         s.turn = -3;
                         s.skew = 0.03;
                       }),
                  0.4},
        TraceCase{"thin", with(capacitance(), [](Sheet& s) { s.pen = 1; }), 0.6},
        TraceCase{"thick", with(capacitance(), [](Sheet& s) { s.pen = 7; }), 0.8},
        TraceCase{"noisy",
                  with(capacitance(),
                       [](Sheet& s) {
                         s.noise = 12;
                         s.turn = 1.5;
                       }),
                  0.6},
        TraceCase{"jpeg",
                  with(capacitance(),
                       [](Sheet& s) {
                         s.jpegQuality = 60;
                         s.turn = -2;
                       }),
                  0.8},
        TraceCase{"gridOnTop",
                  with(Sheet(),
                       [](Sheet& s) {
                         s.gridOnTop = true;
                         s.turn = 1;
                       }),
                  1.0},
        TraceCase{"gridOnTopOfSteep",
                  with(Sheet(),
                       [](Sheet& s) {
                         s.gridOnTop = true;
                         s.curve = [](double x) { return 50 + 45 * std::tanh(3 * (x - 5.2)); };
                       }),
                  1.2},
        TraceCase{"blackOnBlackFrame",
                  with(Sheet(),
                       [](Sheet& s) {
                         s.ink = QColor(20, 20, 20);
                         s.curve = [](double x) { return 12 + 0.8 * x * x; };
                       }),
                  0.5},
        TraceCase{"dashed", with(Sheet(), [](Sheet& s) { s.style = Qt::DashLine; }), 0.9, 30},
        TraceCase{"pale", with(Sheet(), [](Sheet& s) { s.ink = QColor(110, 200, 120); }), 0.5},
        TraceCase{"everyPixel", Sheet(), 0.35, 3, {50, 1, 12, 0}}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(Measured, IntegralsAreThoseOfTheCurve) {
  const struct {
    bool logX, logY;
    QPointF low, high;
    double most;
  } axes[] = {{true, true, {0.1, 1e-11}, {1000, 1e-8}, 0.001},
              {false, true, {0, 1e-11}, {100, 1e-8}, 0.005},
              {true, false, {0.1, 0}, {100, 5e-9}, 0.005},
              {false, false, {0, 0}, {100, 5e-9}, 0.005}};
  const std::function<void(Sheet*)> pictures[] = {[](Sheet*) {},
                                                  [](Sheet* s) { s->pen = 1.2; },
                                                  [](Sheet* s) { s->turn = 2; },
                                                  [](Sheet* s) { s->noise = 12; },
                                                  [](Sheet* s) { s->gridOnTop = true; },
                                                  [](Sheet* s) { s->jpegQuality = 60; },
                                                  [](Sheet* s) { s->ink = QColor(20, 20, 20); }};
  for (const auto& one : axes)
    for (const auto& change : pictures) {
      Sheet sheet = capacitance();
      sheet.logX = one.logX;
      sheet.logY = one.logY;
      sheet.low = one.low;
      sheet.high = one.high;
      change(&sheet);
      const Measured found = measured(sheet, sheet.seedAt(0.31));
      EXPECT_LE(std::abs(found.area), one.most) << &one - axes << ' ' << &change - pictures;
      EXPECT_TRUE(found.whole && !found.asks()) << &one - axes << ' ' << &change - pictures;
      EXPECT_LT(found.points, 160) << &one - axes << ' ' << &change - pictures;
    }
}

/// A gentle curve through the picture.
Curve arc(const Sheet& sheet, double from, double to, double bend) {
  return [=](double x) {
    const double t = Sheet::share(x, sheet.low.x(), sheet.high.x(), sheet.logX);
    const double y = 0.1 + 0.8 * (from + (to - from) * t + 4 * bend * t * (1 - t));
    return Sheet::along(qBound(0.04, y, 0.96), sheet.low.y(), sheet.high.y(), sheet.logY);
  };
}

TEST(Measured, CrossingsAreKeptOrAskedAbout) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> share(0, 1);
  const auto any = [&] { return share(random); };
  int crossings = 0, asked = 0, askedNearFrame = 0;
  for (int n = 0; n < 300; ++n) {
    Sheet sheet;
    sheet.logX = n & 1;
    sheet.logY = n & 2;
    sheet.low = {sheet.logX ? 0.1 : 0.0, sheet.logY ? 0.1 : 0.0};
    sheet.high = {sheet.logX ? 1000.0 : 10.0, 100};
    sheet.pen = 1.5 + 2.5 * any();
    const double from = any(), to = any(), bend = 0.6 * (any() - 0.5);
    sheet.curve = arc(sheet, from, to, bend);
    sheet.other = arc(sheet, any(), any(), 0.6 * (any() - 0.5));
    if (n >= 150) { // they cross near the frame
      const double frame = 0.02 + 0.06 * any(), close = frame / (1 - frame);
      const double start = n & 4 ? from : to, by = 0.3 + 0.2 * any();
      const double end = start < 0.5 ? start + by : start - by;
      sheet.other = n & 4 ? arc(sheet, end, to + (from - end) * close, bend)
                          : arc(sheet, from + (to - end) * close, end, bend);
    }
    sheet.ink = n % 3 ? QColor(20, 20, 20) : QColor(200, 30, 30);
    sheet.grid = QColor(190, 190, 190);
    sheet.jpegQuality = n % 5 ? 100 : 75;
    sheet.noise = n % 7 ? 0 : 8;
    sheet.turn = n % 4 - 1.5;
    const auto apart = [&](double part) {
      const double x = sheet.x(part);
      return sheet.flat({x, sheet.curve(x)}).y() - sheet.flat({x, sheet.other(x)}).y();
    };
    double at = 0;
    for (int i = 20; i < 980; ++i)
      if (apart(i / 1000.0) * apart((i + 1) / 1000.0) < 0)
        at = i / 1000.0;
    const double seed = at < 0.5 ? at + 0.15 + 0.3 * any() : at - 0.15 - 0.3 * any();
    if (at == 0 || std::abs(apart(seed)) < 12)
      continue;
    ++crossings;
    const Measured found = measured(sheet, sheet.seedAt(seed));
    (n < 150 ? asked : askedNearFrame) += found.asks();
    EXPECT_TRUE(found.whole || found.asks()) << n;
    EXPECT_LE(found.off, 2.5) << n;
    EXPECT_LE(std::abs(found.area), n < 150 ? 0.003 : 0.005) << n;
  }
  EXPECT_GT(crossings, 40);
  EXPECT_LE(asked, crossings / 20);
  EXPECT_LE(askedNearFrame, crossings / 4); // the branches are short there
}

TEST(Measured, ClicksWhereTheGridIsCrossedMeanTheCurve) {
  int clicks = 0, asked = 0;
  const auto click = [&](const Sheet& sheet, double part, const QPoint& beside = {}) {
    const Measured found = measured(sheet, sheet.seedAt(part) + beside);
    ++clicks;
    asked += found.asks();
    EXPECT_TRUE((found.whole || found.asks()) && found.off < 2.5)
        << qPrintable(sheet.ink.name()) << sheet.gridOnTop << sheet.turn << ' ' << part << ' '
        << found.off;
  };
  for (const QColor& ink : {QColor(200, 30, 30), QColor(20, 20, 20), QColor(110, 200, 120)})
    for (const bool gridOnTop : {false, true})
      for (const int line : {1, 3, 4, 6, 9}) {
        Sheet sheet = capacitance();
        sheet.ink = ink;
        sheet.gridOnTop = gridOnTop;
        sheet.turn = line % 2;
        const QPoint beside(line % 2 ? 2 : -2, line % 3 - 1);
        click(sheet, line / 10.0);
        click(sheet, line / 10.0, beside);
        double level = 0; // where the curve comes down to a line along
        while (level < 1 && Sheet::share(sheet.curve(sheet.x(level)), sheet.low.y(), sheet.high.y(),
                                         true) > line / 10.0)
          level += 0.0005;
        if (level <= 0.02 || level >= 0.98)
          continue;
        click(sheet, level);
        click(sheet, level, beside);
        click(sheet, level, QPoint(0, 0) - beside);
      }
  EXPECT_LE(asked, clicks / 10);
  // In a grid of the curve's own colour more places are in doubt, and are asked about.
  Sheet sheet = capacitance();
  sheet.ink = sheet.grid = QColor(20, 20, 20);
  for (int i = 0; i < 20; ++i)
    click(sheet, 0.03 + i / 21.0);
}

TEST(Measured, EndsAreNotPulledOntoTheFrame) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> share(0.05, 1);
  int asked = 0;
  for (int n = 0; n < 198; ++n) { // from 66 on they meet it steeply
    Sheet sheet;
    sheet.ink = n % 2 ? QColor(20, 20, 20) : n % 4 ? QColor(30, 60, 190) : QColor(200, 30, 30);
    sheet.pen = 1.2 + 2.5 * share(random);
    sheet.jpegQuality = n % 3 ? 100 : 70;
    sheet.turn = n % 5 * 0.5 - 1;
    const double bend = n < 66 ? 0.3 * (share(random) - 0.5) : n % 4 < 2 ? 0.45 : -0.45;
    sheet.curve = arc(sheet, share(random), share(random), bend);
    const Measured found = measured(sheet, sheet.seedAt(0.55));
    ASSERT_GE(found.points, 3) << n;
    asked += found.asks();
    EXPECT_LE(found.off, n % 3 ? 1.2 : 1.6) << n;
    EXPECT_TRUE(found.whole || found.asks()) << n;
  }
  EXPECT_LE(asked, 2);
}

TEST(Tracer, FindsTheStrokeNearTheClickOnly) {
  const Sheet sheet;
  const QImage picture = sheet.picture();
  const QPointF on = sheet.pixel({5.3, sheet.curve(5.3)});
  EXPECT_FALSE(traced(picture, QPoint(int(on.x()), int(on.y()) + 4)).isEmpty());
  for (const QPoint& off :
       {QPoint(30, 500), QPoint(-50, 10), QPoint(799, 559), QPoint(1 << 30, -(1 << 30))})
    EXPECT_TRUE(traced(picture, off).isEmpty()) << off.x();
  EXPECT_TRUE(traced(QImage(), {0, 0}).isEmpty());
  QImage plain(50, 50, QImage::Format_Mono);
  plain.fill(1);
  EXPECT_TRUE(traced(plain, {10, 10}).isEmpty());
  plain.setPixel(10, 10, 0);
  EXPECT_EQ(traced(plain, {10, 10}).size(), 1);
}

TEST(Tracer, KeepsToItsCurve) {
  // Two of the same colour that cross, one of another colour, and letters behind the end.
  QImage picture(600, 400, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 2));
  painter.drawLine(QPointF(50, 100), QPointF(550, 300));
  painter.drawLine(QPointF(50, 300), QPointF(550, 150));
  painter.drawLine(QPointF(556, 290), QPointF(556, 310));
  painter.drawLine(QPointF(558, 300), QPointF(563, 300));
  painter.setPen(QPen(Qt::blue, 2));
  painter.drawLine(QPointF(50, 110), QPointF(550, 310));
  painter.end();
  const QVector<QPointF> points = traced(picture, {150, 140});
  ASSERT_GE(points.size(), 2);
  const QVector<QPointF> truth{{50, 100}, {550, 300}};
  for (const QPointF& point : points)
    EXPECT_LE(distanceTo(truth, point), 1.0) << point.x();
  EXPECT_NEAR(points.first().x(), 50, 2);
  EXPECT_NEAR(points.last().x(), 550, 2);
}

TEST(Tracer, BridgesGapsUpToItsLimit) {
  QImage picture(400, 100, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.fillRect(20, 50, 100, 2, Qt::red);
  painter.fillRect(130, 50, 100, 2, Qt::red); // 10 pixels on
  painter.fillRect(260, 50, 100, 2, Qt::red); // 30 pixels on
  painter.end();
  for (const auto& [gap, end] :
       {std::pair{0, 119.5}, {9, 119.5}, {10, 229.5}, {29, 229.5}, {30, 359.5}}) {
    TraceOptions options;
    options.gap = gap;
    EXPECT_EQ(traced(picture, {60, 51}, options).last(), QPointF(end, 51)) << gap;
  }
}

TEST(Tracer, TellsTheStrokeFromItsFaults) {
  const auto paint = [](const std::function<void(QPainter*)>& what) {
    QImage picture(400, 400, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    what(&painter);
    painter.end();
    return picture;
  };
  const QColor pale(255, 115, 115); // 55 per cent of the ink
  // A pale row within a stroke does not split it.
  const QImage holed = paint([&](QPainter* painter) {
    painter->fillRect(20, 40, 300, 9, Qt::red);
    painter->fillRect(20, 44, 300, 1, QColor(255, 160, 160));
  });
  for (const QPointF& point : traced(holed, {100, 42}))
    EXPECT_NEAR(point.y(), 44.5, 0.2);
  // Beyond a gap, something pale is not taken for it; where it touches, it is.
  for (const int gap : {0, 5}) {
    const QImage faint = paint([&](QPainter* painter) {
      painter->fillRect(20, 40, 180, 3, Qt::red);
      painter->fillRect(200 + gap, 40, 100, 3, pale);
    });
    EXPECT_EQ(traced(faint, {100, 41}).last().x(), gap == 0 ? 299.5 : 199.5);
  }
  // A steep stroke is followed to its end, across a band that hides it.
  const QLineF steep(100, 20, 118, 380);
  const auto banded = [&](int height) {
    return paint([&](QPainter* painter) {
      painter->setPen(QPen(Qt::red, 3, Qt::SolidLine, Qt::FlatCap));
      painter->drawLine(steep);
      painter->fillRect(0, 200, 400, height, Qt::darkGreen);
    });
  };
  for (const int band : {1, 8, 40}) {
    const QVector<QPointF> points = traced(banded(band), {104, 100});
    ASSERT_GE(points.size(), 2);
    EXPECT_LE(QLineF(points.first(), steep.p1()).length(), 2.5) << band;
    EXPECT_LE(QLineF(points.last(), band < 12 ? steep.p2() : steep.pointAt(0.5)).length(), 2.5)
        << band;
    for (const QPointF& point : points)
      EXPECT_LE(distanceTo({steep.p1(), steep.p2()}, point), 0.6) << band << ' ' << point.y();
  }
}

TEST(Tracer, ComesDownACliff) {
  for (const int band : {0, 6}) {
    QImage picture(400, 400, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::red, 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPolyline(QPolygonF({{20, 50}, {150, 50}, {150, 350}, {380, 350}}));
    painter.fillRect(0, 200, 400, band, Qt::darkGreen);
    painter.end();
    const QVector<QPointF> points = traced(picture, {60, 50});
    ASSERT_GE(points.size(), 4);
    EXPECT_GT(points.last().x(), 378) << band;
    EXPECT_NEAR(points.last().y(), 350, 0.6) << band;
  }
}

TEST(Tracer, TakesAnyScrawl) {
  std::mt19937 random(17);
  const auto below = [&](int end) { return int(random() % unsigned(end)); };
  int lines = 0;
  for (int n = 0; n < 400; ++n) {
    QImage picture(1 + below(160), 1 + below(120), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, n & 1);
    const auto place = [&] {
      return QPointF(below(picture.width() + 20) - 10, below(picture.height() + 20) - 10);
    };
    for (int i = below(12); i >= 0; --i) {
      painter.setPen(QPen(below(3) ? Qt::black : Qt::red, 1 + below(5)));
      below(4) ? painter.drawLine(place(), place()) : painter.drawEllipse(place(), 9, 30);
    }
    painter.end();
    const QPoint seed(below(picture.width()), below(picture.height()));
    const TraceOptions options{5 + below(91), 1 + below(9), below(60), 0.1 * below(20)};
    const QVector<QPointF> line = traceCurve(picture, seed, options).line;
    lines += line.size() > 20;
    for (int i = 0; i < line.size(); ++i) {
      EXPECT_TRUE(i == 0 || line[i].x() > line[i - 1].x()) << n << ' ' << i;
      EXPECT_TRUE(QRectF(picture.rect()).contains(line[i])) << n << ' ' << i;
    }
    const GraphMap map = *GraphMap::fromAxes({{0, 0}, {9, 0}, 1e-9, 1e9, AxisScale::Logarithmic},
                                             {{0, 0}, {0, 1}, 1, 1e300, AxisScale::Logarithmic});
    for (const QPointF& point : chosenPoints(line, options, &map)) // far beyond any number
      EXPECT_TRUE(line.contains(point)) << n;
  }
  EXPECT_GT(lines, 100) << "some of it is traced";
}

TEST(Tracer, TakesAnyPictureInTime) {
  // All ink but a corner, and stripes as wide as a gap: the worst that it can walk over.
  QImage picture(4000, 3000, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  for (int x = 0; x < 1900; x += 2)
    painter.fillRect(x, 0, 1, 3000, Qt::black);
  painter.fillRect(2000, 0, 900, 3000, Qt::black);
  painter.end();
  QElapsedTimer clock;
  clock.start();
  EXPECT_EQ(traced(picture, {2400, 1500}).size(), 2);
  traced(picture, {1000, 1500});
  traced(picture, {1000, 1500}, {95, 1, 200, 0});
  EXPECT_LT(clock.elapsed(), 20'000);
}

// ---- the model ----------------------------------------------------------------------------------

class Digitiser : public testing::Test {
protected:
  Digitiser() : model(sheet.picture()) {}

  void calibrate() {
    const QPointF places[] = {{0, 0}, {10, 0}, {0, 0}, {0, 100}};
    const char* texts[] = {"0", "10", "0", "0.1k"};
    for (int mark = 0; mark < markCount; ++mark) {
      model.beginGesture();
      model.placeMark(mark, sheet.pixel(places[mark]));
      model.setMarkText(mark, text(texts[mark]));
    }
  }
  std::string advice() const { return model.advice().text.toStdString(); }

  const Sheet sheet;
  DigitiserModel model;
};

TEST_F(Digitiser, AdvisesStepByStep) {
  EXPECT_EQ(advice(), "Mark X1: click where the value on the X axis is known.");
  model.placeMark(MarkX1, sheet.pixel({0, 0}));
  EXPECT_EQ(advice(), "Type the value of the X axis at X1.");
  calibrate();
  EXPECT_TRUE(model.map());
  EXPECT_FALSE(model.advice().isFault);

  const struct {
    std::function<void()> change;
    const char* fault;
  } faults[] = {
      {[&] { model.setMarkText(MarkX2, text("ten")); },
       "The value of X2 is not a number: type it like 4.7k or 100p."},
      {[&] { model.setMarkText(MarkX2, text("1e999")); },
       "The value of X2 is not a number: type it like 4.7k or 100p."},
      {[&] { model.setMarkText(MarkX2, text("0n")); },
       "X1 and X2 have the same value: type two different ones."},
      {[&] {
         model.placeMark(MarkY2, sheet.pixel({0, 0}));
       },
       "Y1 and Y2 lie at the same place: move one of them along the axis."},
      {[&] {
         model.placeMark(MarkY2, sheet.pixel({5, 0}));
       },
       "Both axes run in the same direction: move the marks of one of them."},
      {[&] { model.setScale(XAxis, AxisScale::Logarithmic); },
       "The value of X1 must be above 0 on a logarithmic axis."},
  };
  for (const auto& one : faults) {
    model.beginGesture();
    one.change();
    EXPECT_EQ(advice(), one.fault);
    EXPECT_TRUE(model.advice().isFault);
    EXPECT_FALSE(model.map());
    EXPECT_TRUE(model.values().empty());
    model.undoStack()->undo();
    EXPECT_TRUE(model.map());
  }
  model.addPoint(sheet.pixel({2, 20}));
  EXPECT_FALSE(model.isComplete());
  model.addPoint(sheet.pixel({2, 30})); // the same x
  EXPECT_FALSE(model.isComplete());
  model.addPoint(sheet.pixel({1, 30}));
  ASSERT_TRUE(model.isComplete());
  EXPECT_NEAR(model.values()[0].x(), 1, 1e-9);
  EXPECT_NEAR(model.values()[1].y(), 25, 1e-9);
}

TEST_F(Digitiser, UndoesEveryGestureAtOnce) {
  std::vector<DigitiserState> states{model.state()};
  const auto gesture = [&](const std::function<void()>& change) {
    model.beginGesture();
    change();
    states.push_back(model.state());
  };
  gesture([&] {
    model.placeMark(MarkX1, {10, 10});
    model.placeMark(MarkX1, {12, 10});
  });
  gesture([&] {
    for (const char* typed : {"1", "10", "10k"})
      model.setMarkText(MarkX1, text(typed));
  });
  gesture([&] { model.setMarkText(MarkX2, text("5")); });
  gesture([&] { model.setScale(YAxis, AxisScale::Logarithmic); });
  gesture([&] { model.addPoint({50, 50}); });
  gesture([&] { model.addPoint({20, 20}); });
  gesture([&] {
    EXPECT_EQ(model.movePoint(0, {60, 20}), 1);
    EXPECT_EQ(model.movePoint(1, {9, 9}), 0);
  });
  gesture([&] {
    const QPointF seed = sheet.pixel({5, sheet.curve(5)});
    EXPECT_TRUE(model.trace(seed.toPoint(), {}));
  });
  EXPECT_EQ(model.state().points.first(), QPointF(9, 9)) << "what lies beside the trace stays";
  gesture([&] { model.removePoints({3, 0, 1}); });
  gesture([&] { model.removeMark(MarkX1); });
  gesture([&] { model.clearPoints(); });

  ASSERT_EQ(model.undoStack()->count(), static_cast<int>(states.size()) - 1);
  for (std::size_t i = states.size(); i-- > 1;) {
    model.undoStack()->undo();
    EXPECT_TRUE(model.state() == states[i - 1]) << i;
  }
  EXPECT_TRUE(model.state().isEmpty());
  for (std::size_t i = 1; i < states.size(); ++i) {
    model.undoStack()->redo();
    EXPECT_TRUE(model.state() == states[i]) << i;
  }
}

TEST_F(Digitiser, ForgetsWhatCameToNothing) {
  model.setMarkText(MarkX1, text("5"));
  model.setMarkText(MarkX1, QString());
  EXPECT_EQ(model.undoStack()->count(), 0);
  model.clearPoints();
  model.removeMark(MarkX1);
  EXPECT_EQ(model.undoStack()->count(), 0);
}

TEST_F(Digitiser, RetracesTheLastTraceOnly) {
  const QPoint seed = sheet.pixel({5, sheet.curve(5)}).toPoint();
  TraceOptions all;
  all.thinning = 0;
  ASSERT_TRUE(model.trace(seed, {}));
  const int thin = model.state().points.size();
  model.retrace(all);
  EXPECT_GT(model.state().points.size(), 2 * thin);
  EXPECT_EQ(model.undoStack()->count(), 1);
  const int count = model.state().points.size();
  model.addPoint({1, 1});
  model.retrace({});
  EXPECT_EQ(model.state().points.size(), count + 1);
  model.undoStack()->undo();
  model.retrace({}); // there is something to redo
  EXPECT_EQ(model.state().points.size(), count);
  EXPECT_FALSE(model.trace({5, 5}, {}));
  EXPECT_TRUE(model.undoStack()->canRedo());
}

TEST_F(Digitiser, ChoosesPointsAgainForOtherAxes) {
  const Sheet bent = capacitance();
  DigitiserModel other(bent.picture());
  ASSERT_TRUE(other.trace(bent.seedAt(0.3), {}));
  const auto before = other.state().points;
  const QPointF corner = bent.low;
  const QPointF places[] = {
      corner, {bent.high.x(), corner.y()}, corner, {corner.x(), bent.high.y()}};
  const char* texts[] = {"100m", "1k", "10p", "10n"};
  for (int mark = 0; mark < markCount; ++mark) {
    other.placeMark(mark, bent.pixel(places[mark]));
    other.setMarkText(mark, text(texts[mark]));
  }
  other.setScale(XAxis, AxisScale::Logarithmic);
  other.setScale(YAxis, AxisScale::Logarithmic);
  const auto& values = other.values();
  double sum = 0;
  for (std::size_t i = 1; i < values.size(); ++i)
    sum += (values[i].x() - values[i - 1].x()) * (values[i].y() + values[i - 1].y()) / 2;
  EXPECT_NEAR(sum / bent.area(values.front().x(), values.back().x()), 1, 0.001);
  // Points that the user moved stay, and all comes back.
  other.movePoint(5, other.state().points[5] + QPointF(0, 3));
  const auto moved = other.state().points;
  other.setScale(YAxis, AxisScale::Linear);
  EXPECT_EQ(other.state().points, moved);
  while (other.undoStack()->index() > 1)
    other.undoStack()->undo();
  EXPECT_EQ(other.state().points, before);
}

TEST_F(Digitiser, AsksWhereALineForksAndCarriesOn) {
  QImage picture(600, 400, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 3));
  painter.drawLine(QPointF(50, 200), QPointF(300, 200));
  painter.drawLine(QPointF(300, 200), QPointF(550, 130));
  painter.drawLine(QPointF(300, 200), QPointF(550, 270));
  painter.end();
  DigitiserModel fork(picture);
  const QPointF places[] = {{50, 350}, {550, 350}, {50, 350}, {50, 50}};
  for (int mark = 0; mark < markCount; ++mark) {
    fork.placeMark(mark, places[mark]);
    fork.setMarkText(mark, text(mark % 2 ? "10" : "0"));
  }
  ASSERT_TRUE(fork.trace({100, 200}, {}));
  ASSERT_TRUE(fork.state().unclearRight && !fork.state().unclearLeft);
  EXPECT_NEAR(fork.state().unclearRight->x(), 305, 15);
  EXPECT_TRUE(fork.advice().isQuestion && fork.isComplete());
  const auto stem = fork.state().points;
  EXPECT_EQ(stem.last().x(), fork.state().unclearRight->x());
  for (const double end : {130.0, 270.0}) {
    ASSERT_TRUE(fork.trace({450, int(200 + 0.6 * (end - 200))}, {}));
    EXPECT_FALSE(fork.state().unclearRight || fork.advice().isQuestion) << end;
    EXPECT_EQ(fork.state().points.mid(0, stem.size()), stem);
    for (const QPointF& point : fork.state().points)
      EXPECT_LE(distanceTo({{50, 200}, {300, 200}, {550, end}}, point), 2) << point.x();
    EXPECT_NEAR(fork.state().points.last().x(), 550, 3);
    fork.undoStack()->undo();
    EXPECT_TRUE(fork.state().unclearRight);
  }
  fork.addPoint({400, 172});
  EXPECT_FALSE(fork.state().unclearRight) << "the user goes on by hand";
}

TEST_F(Digitiser, KeepsPlacesInThePicture) {
  model.addPoint({-1e300, 1e300});
  model.placeMark(MarkY1, {1e9, -5});
  EXPECT_EQ(model.state().points.first(), QPointF(0, 560));
  EXPECT_EQ(model.state().places[MarkY1], QPointF(800, 0));
}

// ---- files --------------------------------------------------------------------------------------

QByteArray encoded(const QImage& image, const char* format) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  image.save(&file, format);
  return file.data();
}

TEST(PictureFile, SaysWhatIsWrong) {
  const QTemporaryDir folder;
  QImage clear(40, 30, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  // A small file whose header says that it has 8,000 by 8,000 pixels.
  QByteArray huge = encoded(clear, "BMP");
  huge.replace(18, 8, QByteArray::fromHex("401f0000401f0000"));
  const struct {
    const char* name;
    QByteArray content;
    const char* fault; ///< a part of it; empty where the picture is read
  } cases[] = {
      {"good.png", encoded(clear, "PNG"), ""},
      {"named.jpg", encoded(clear, "PNG"), ""}, // content counts
      {"good@2x.png", encoded(clear, "PNG"), ""},
      {"empty.png", "", "is empty"},
      {"text.png", "no picture at all", "is not a picture"},
      {"short.png", encoded(clear, "PNG").left(20), "is not a picture"},
      {"huge.bmp", huge, "pixels. The digitiser takes at most 40 million"},
  };
  for (const auto& one : cases) {
    const QString path = folder.filePath(text(one.name));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(one.content);
    file.close();
    const PictureFile read = readPicture(path);
    if (!*one.fault) {
      EXPECT_EQ(read.fault.toStdString(), "") << one.name;
      EXPECT_EQ(read.picture.size(), QSize(40, 30)) << one.name;
      EXPECT_EQ(read.picture.pixel(5, 5), qRgb(255, 255, 255)) << one.name;
      EXPECT_EQ(read.picture.devicePixelRatio(), 1) << one.name;
      continue;
    }
    EXPECT_TRUE(read.picture.isNull()) << one.name;
    EXPECT_TRUE(read.fault.contains(text(one.fault))) << read.fault.toStdString();
    EXPECT_TRUE(read.fault.contains(QDir::toNativeSeparators(path))) << read.fault.toStdString();
  }
  const QString drawing = folder.filePath(text("long.svg"));
  QFile file(drawing);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("<svg>") == 5 &&
              file.resize(3'000'000'000)); // a hole, which takes no room
  EXPECT_TRUE(readPicture(drawing).fault.contains(text("has 3 GB")));
  EXPECT_TRUE(readPicture(folder.path()).fault.contains(text("is not a file")));
  EXPECT_TRUE(
      readPicture(folder.filePath(text("none.png"))).fault.contains(text("does not exist")));
  EXPECT_FALSE(readPicture(QString()).fault.isEmpty());
}

} // namespace
