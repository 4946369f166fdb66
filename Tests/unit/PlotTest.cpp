#include "PlotCurve.h"
#include "PlotScale.h"

#include <qwt_scale_map.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <map>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

QString texts(const QList<double>& values, double step) {
  QStringList result;
  for (const double value : values)
    result.append(plotNumber(value, step));
  return result.join(QLatin1Char(' '));
}

TEST(PlotScale, UsableRanges) {
  struct Case {
    double a, b, low, high;
  } const cases[] = {
      {0, 1, 0, 1},
      {2, -3, -3, 2},
      {5, 5, 2.5, 7.5},
      {-4, -4, -6, -2},
      {0, 0, -1, 1},
      {nan, nan, 0, 1},
      {infinity, -infinity, 0, 1},
      {nan, 8, 4, 12},
      {8, infinity, 4, 12},
      {1, 1 + 1e-15, 0.5, 1.5},
      {0, 5e-324, -1, 1},
      {-largest, largest, -1e300, 1e300},
      {1e300, 2e300, 5e299, 1e300},
      {1e-300, 1e300, 1e-300, 1e300},
  };
  for (const Case& row : cases) {
    const PlotRange range = usableRange(row.a, row.b);
    EXPECT_NEAR(range.low, row.low, std::abs(row.low) * 1e-12) << row.a << " to " << row.b;
    EXPECT_NEAR(range.high, row.high, std::abs(row.high) * 1e-12) << row.a << " to " << row.b;
    // Ranges are handed around between plotters until they stand.
    EXPECT_EQ(usableRange(range.low, range.high), range) << row.a << " to " << row.b;
  }
}

TEST(PlotScale, LinesStandWhereTheyWereAskedForOrAtRoundValues) {
  struct Case {
    double low, high;
    unsigned lines;
    const char* expected;
  } const cases[] = {
      {0, 4e-6, 3, "0 1u 2u 3u 4u"},
      {0, 3e-3, 5, "0 500u 1m 1.5m 2m 2.5m 3m"},
      {0, 15, 4, "0 3 6 9 12 15"},
      {0, 80e3, 3, "0 20k 40k 60k 80k"},
      {2.5e6, 12.5e6, 3, "2.5Meg 5Meg 7.5Meg 10Meg 12.5Meg"},
      {-0.3, 0.3, 5, "-300m -200m -100m 0 100m 200m 300m"},
      {0.13, 9.7, 3, "2 4 6 8"},
      {699.53e-6, 700.51e-6, 3, "699.6u 699.8u 700u 700.2u 700.4u"},
      {1, 1 + 4e-9, 3, "1 1.000000001 1.000000002 1.000000003 1.000000004"},
      {0, 1, 0, ""},
  };
  for (const Case& row : cases) {
    const PlotTicks ticks = plotTicks({row.low, row.high}, row.lines, 0);
    EXPECT_EQ(texts(ticks.major, ticks.step).toStdString(), row.expected)
        << row.low << " to " << row.high;
  }
  for (const double unit : {1e-6, 1.0, 1e-30, 1e-290, 1e290})
    EXPECT_EQ(plotTicks({0, 4 * unit}, 3, 0).minor.size(), 16) << "four between two of " << unit;
  EXPECT_EQ(plotTicks({0, 4e-12}, 3, 1).minor.size(), 4);
}

TEST(PlotScale, LinesOfDecades) {
  struct Case {
    double low, high; // values
    unsigned lines;
    const char* expected;
    int minor;
  } const cases[] = {
      {1, 1e6, 8, "1 10 100 1k 10k 100k 1Meg", 48},
      {1, 1e12, 5, "1 100 10k 1Meg 100Meg 10G 1T", 6},
      {1e-3, 1e-1, 4, "1m 10m 100m", 16},
      {15, 800, 4, "20 50 100 200 500", 11},
      {1e3, 1.2e3, 3, "1k 1.05k 1.1k 1.15k 1.2k", -1},
      {1, 10, 0, "", 0},
  };
  for (const Case& row : cases) {
    const PlotRange range = scaleRange(row.low, row.high, true);
    const PlotTicks ticks = decadeTicks(range, row.lines, 0);
    EXPECT_EQ(texts(ticks.major, ticks.step).toStdString(), row.expected)
        << row.low << " to " << row.high;
    EXPECT_EQ(row.minor < 0 ? -1 : ticks.minor.size(), row.minor) << row.low << " to " << row.high;
  }
  struct Ends {
    double a, b, low, high;
  } const ends[] = {
      {100, 1, 1, 100},  {0, 1e3, 1, 1e3},       {-5, 1e3, 1, 1e3},       {-5, -3, 1, 10},
      {nan, nan, 1, 10}, {1e-300, 1, 1e-150, 1}, {1, infinity, 1, 1e150}, {10, 10, 3.1623, 31.623},
  };
  for (const Ends& row : ends) {
    const PlotRange range = scaleRange(row.a, row.b, true);
    EXPECT_NEAR(valueAt(range.low, true), row.low, row.low * 1e-4) << row.a << " to " << row.b;
    EXPECT_NEAR(valueAt(range.high, true), row.high, row.high * 1e-4) << row.a << " to " << row.b;
  }
}

// Every magnitude and offset that a double can tell, divided in no time, in order and in range.
TEST(PlotScale, DivisionsOfAnyRangeAreFewOrderedAndInside) {
  std::mt19937 random(7);
  std::uniform_real_distribution<> mantissa(-10, 10);
  std::uniform_int_distribution<> exponent(-310, 308);
  std::uniform_int_distribution<unsigned> lines(0, 12);
  const auto started = std::chrono::steady_clock::now();
  for (int round = 0; round < 20000; ++round) {
    const double a = mantissa(random) * std::pow(10.0, exponent(random));
    const double b = round % 2 ? a * (1 + std::pow(10.0, -(round % 14)))
                               : mantissa(random) * std::pow(10.0, exponent(random));
    const unsigned asked = round % 100 == 0 ? 4000000000u : lines(random);
    const PlotRange range = usableRange(a, b);
    const PlotTicks ticks = plotTicks(range, asked, asked / 3);
    SCOPED_TRACE(testing::Message() << a << " to " << b << " by " << asked);
    ASSERT_LE(ticks.major.size(), 2000);
    ASSERT_TRUE(asked == 0 || ticks.major.size() >= 1);
    ASSERT_TRUE(std::isfinite(ticks.step) && ticks.step > 0);
    const double error = range.width() * 1e-3;
    for (const QList<double>& values : {ticks.major, ticks.minor})
      for (int i = 0; i < values.size(); ++i) {
        ASSERT_GE(values[i], range.low - error);
        ASSERT_LE(values[i], range.high + error);
        ASSERT_TRUE(i == 0 || values[i - 1] < values[i]);
      }
    unsigned rounded = asked;
    const PlotRange outer = roundedRange(range, &rounded);
    ASSERT_LE(outer.low, range.low + error);
    ASSERT_TRUE(outer.high >= range.high - error);
    ASSERT_LE(rounded, 2000u);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(60));
}

TEST(PlotScale, RoundedRanges) {
  struct Case {
    double low, high;
    unsigned lines;
    double roundLow, roundHigh;
    unsigned roundLines;
  } const cases[] = {
      {0, 9.7, 3, 0, 10, 3},
      {0, 10, 3, 0, 10, 3},
      {0, 930e-6, 3, 0, 1e-3, 3},
      {30, 258, 3, 0, 300, 2},
      {-1.2, 3.3, 3, -2, 4, 2},
      {0.9, 1.1, 3, 0.9, 1.1, 3},
      {1e3, 1.001e3, 4, 1000, 1001, 4},
      {0, 1e300, 3, 0, 1e300, 3},
  };
  for (const Case& row : cases) {
    unsigned lines = row.lines;
    const PlotRange range = roundedRange({row.low, row.high}, &lines);
    EXPECT_NEAR(range.low, row.roundLow, 1e-9 * row.high) << row.low << " to " << row.high;
    EXPECT_NEAR(range.high, row.roundHigh, 1e-9 * row.high) << row.low << " to " << row.high;
    EXPECT_EQ(lines, row.roundLines) << row.low << " to " << row.high;
    EXPECT_EQ(plotTicks(range, lines, 0).major.size(), int(lines) + 2);
  }
}

TEST(PlotScale, NumbersHaveTheDigitsThatTheResolutionTells) {
  struct Case {
    double value, resolution;
    const char* expected;
  } const cases[] = {
      {1.23456789e-6, 1e-9, "1.2346u"}, {2e6, 1e6, "2Meg"},
      {0.1 + 0.2, 0.1, "300m"},         {1e-25, 1, "0"},
      {-1e300, 1e299, "-1e300"},        {-1.5e-3, 1e-4, "-1.5m"},
  };
  for (const Case& row : cases)
    EXPECT_EQ(plotNumber(row.value, row.resolution).toStdString(), row.expected);
  EXPECT_EQ(plotNumber(0.1 + 0.2, 0.1, false).toStdString(), "0.3");
  EXPECT_EQ(plotNumber(200, 100, false).toStdString(), "200");
}

class PlotCurveTest : public testing::Test {
protected:
  static constexpr int width = 500, height = 200;

  void look(double left, double right, double bottom, double top) {
    x.setScaleInterval(left, right);
    x.setPaintInterval(0, width - 1);
    y.setScaleInterval(bottom, top);
    y.setPaintInterval(height - 1, 0);
  }
  std::vector<QPolygonF> paths(const std::vector<double>& xs, const std::vector<double>& ys) {
    return PlotCurve(xs.data(), ys.data(), xs.size(), 1)
        .paths(x, y, QRectF(-4, -4, width + 8, height + 8));
  }

  QwtScaleMap x, y;
};

// What is drawn in each column of pixels reaches as high and as low as all of its points do.
TEST_F(PlotCurveTest, EveryColumnKeepsItsPeaks) {
  std::mt19937 random(11);
  std::normal_distribution<> noise;
  for (const bool ascending : {true, false}) {
    const std::size_t count = 200000;
    std::vector<double> xs, ys;
    std::map<int, std::pair<double, double>> extremes;
    look(0, 1, -6, 6);
    for (std::size_t i = 0; i < count; ++i) {
      const double share = double(i) / count;
      xs.push_back(ascending ? share : 0.5 + 0.49 * std::cos(20 * share));
      ys.push_back(noise(random));
      const int column = int(std::round(x.transform(xs.back())));
      const double row = y.transform(ys.back());
      auto& [low, high] = extremes.emplace(column, std::make_pair(row, row)).first->second;
      low = std::min(low, row);
      high = std::max(high, row);
    }
    const std::vector<QPolygonF> drawn = paths(xs, ys);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_LE(drawn[0].size(), ascending ? 4 * width : 4 * 8 * width);
    std::map<int, std::pair<double, double>> seen;
    for (const QPointF& point : drawn[0]) {
      auto& [low, high] =
          seen.emplace(int(std::round(point.x())), std::make_pair(point.y(), point.y()))
              .first->second;
      low = std::min(low, point.y());
      high = std::max(high, point.y());
    }
    for (const auto& [column, expected] : extremes) {
      ASSERT_NEAR(seen[column].first, expected.first, 0.51) << "column " << column;
      ASSERT_NEAR(seen[column].second, expected.second, 0.51) << "column " << column;
    }
  }
}

// Columns that a line crosses up and down are all as dark, wherever in them it enters and leaves.
TEST_F(PlotCurveTest, DenseTrainsMakeNoPattern) {
  for (const double period : {0.21, 0.34, 0.49}) { // pixels
    look(0, width - 1, 0, 1);
    std::vector<double> xs, ys;
    for (int edge = 0; edge * period / 2 < width - 1; ++edge)
      for (int level : {edge % 2, 1 - edge % 2}) {
        xs.push_back(edge * period / 2);
        ys.push_back(level);
      }
    const std::vector<QPolygonF> drawn = paths(xs, ys);
    ASSERT_EQ(drawn.size(), 1u);
    std::map<double, std::pair<double, double>> seen;
    for (const QPointF& point : drawn[0]) {
      ASSERT_EQ(point.x(), std::round(point.x())) << period;
      auto& [low, high] =
          seen.emplace(point.x(), std::make_pair(point.y(), point.y())).first->second;
      low = std::min(low, point.y());
      high = std::max(high, point.y());
    }
    EXPECT_GE(seen.size(), width - 2u) << period;
    for (const auto& [column, rows] : seen) {
      if (column > 0 && column < width - 1) {
        ASSERT_EQ(rows.second - rows.first, height - 1.0) << period << " at " << column;
      }
    }
  }
}

TEST_F(PlotCurveTest, GapsPartTheCurve) {
  look(0, 10, 0, 10);
  struct Case {
    std::vector<double> xs, ys;
    std::vector<int> sizes;
  } const cases[] = {
      {{}, {}, {}},
      {{nan, infinity}, {1, 2}, {}},
      {{1, 2, 3, 4, 5}, {1, 2, nan, 4, 5}, {2, 2}},
      {{1, 2, 3, 4, 5}, {1, 2, infinity, 4, nan}, {2, 1}},
      {{nan, 2, 3, -infinity, 5}, {1, 2, 3, 4, 5}, {2, 1}},
      {{5, nan, 5, nan, 5}, {5, 5, 5, 5, 5}, {1}},    // three dots on each other
      {{20, nan, 5}, {5, 5, 5}, {1}},                 // one out of sight
      {{-5, 15, nan, 4, 5}, {2, 8, 0, 1, 2}, {2, 2}}, // a line across all of the view
  };
  for (const Case& row : cases) {
    std::vector<int> sizes;
    for (const QPolygonF& path : paths(row.xs, row.ys))
      sizes.push_back(path.size());
    EXPECT_EQ(sizes, row.sizes) << &row - cases;
  }
}

// A deep zoom leaves line ends thousands of millions of pixels away: the line must stay in place.
TEST_F(PlotCurveTest, LinesFarOutOfSightKeepTheirCourse) {
  for (const double half : {1.0, 1e-3, 1e-9}) {
    look(0.5 - half, 0.5 + half, 0.5 - half, 0.5 + half);
    for (const bool ascending : {true, false}) {
      const std::vector<double> xs =
          ascending ? std::vector<double>{0, 1} : std::vector<double>{1, 0};
      const std::vector<QPolygonF> drawn = paths(xs, xs);
      ASSERT_EQ(drawn.size(), 1u);
      const QPointF from = drawn[0].first();
      const QPointF to = drawn[0].last();
      const double middle =
          from.y() + (to.y() - from.y()) * ((width - 1) / 2.0 - from.x()) / (to.x() - from.x());
      EXPECT_NEAR(middle, (height - 1) / 2.0, 0.5) << half;
      EXPECT_LT(std::abs(to.x() - from.x()), 2 * width) << half;
    }
  }
  look(0, 1, 0, 1);
  for (const QPolygonF& path : paths({0.2, 0.4, 0.6, 1e308}, {-1e308, 1e308, 0.5, largest}))
    for (const QPointF& point : path)
      EXPECT_TRUE(QRectF(-5, -5, width + 10, height + 10).contains(point));
}

TEST_F(PlotCurveTest, StepsStandOnWholePixels) {
  look(0, 1, 0, 1);
  const std::vector<QPolygonF> drawn =
      paths({0.1, 0.3, 0.5, 0.5 + 1e-9, 0.9}, {0.2, 0.2, 0.2, 0.8, 0.8});
  ASSERT_EQ(drawn.size(), 1u);
  for (const QPointF& point : drawn[0])
    EXPECT_EQ(point.y(), std::round(point.y()));
  // A curve that is nearly flat climbs smoothly all the same.
  std::vector<double> xs, ys;
  for (int i = 0; i <= 400; ++i) {
    xs.push_back(i / 400.0);
    ys.push_back(0.5 + i * 1e-5);
  }
  int steps = 0;
  const QPolygonF climb = paths(xs, ys).at(0);
  for (int i = 1; i < climb.size(); ++i)
    steps += std::abs(climb[i].y() - climb[i - 1].y()) > 0.1;
  EXPECT_EQ(steps, 0);
  // Nor is a dense slope a staircase.
  xs.clear();
  ys.clear();
  for (int i = 0; i <= 20000; ++i) {
    xs.push_back(i / 20000.0);
    ys.push_back(xs.back());
  }
  const QPolygonF slope = paths(xs, ys).at(0);
  for (const QPointF& point : slope)
    EXPECT_NEAR(point.y(), (height - 1) * (1 - point.x() / (width - 1)), 0.01);
}

} // namespace
