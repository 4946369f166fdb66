#include "SpinnerSteps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double largest = std::numeric_limits<double>::max();

struct StepCase {
  double from, up, down;
};

TEST(SpinnerSteps, SeriesNeighbours) {
  const StepCase cases[] = {
      {1, 2, 0.5},         {2, 5, 1},           {5, 10, 2},         {0.1, 0.2, 0.05},
      {0.2, 0.5, 0.1},     {3, 5, 2},           {1.5, 2, 1},        {4.7e3, 5e3, 2e3},
      {9.99, 10, 5},       {5.01, 10, 5},       {1e-18, 2e-18, 0},  {3e-20, 5e-20, 0},
      {0, 1, -1},          {-1, -0.5, -2},      {-2, -1, -5},       {-3, -2, -5},
      {-1e-18, 0, -2e-18}, {0.1 * 3, 0.5, 0.2}, {1e15, 2e15, 5e14}, {largest, largest, 1e308},
  };
  for (const StepCase& step : cases) {
    EXPECT_EQ(nextInSeries(step.from, true), step.up) << step.from << " up";
    EXPECT_EQ(nextInSeries(step.from, false), step.down) << step.from << " down";
  }
  // Rounding of earlier arithmetic counts as the number that is shown.
  EXPECT_EQ(nextInSeries(0.1 + 0.1 + 0.3 + 1e-17, true), 1);
  EXPECT_EQ(nextInSeries(4.999999999999999, true), 10);
  EXPECT_FALSE(std::signbit(nextInSeries(-1e-18, true)));
}

TEST(SpinnerSteps, SeriesLimits) {
  EXPECT_EQ(nextInSeries(0, true, {0.05, 1e-18}), 0.05);
  EXPECT_EQ(nextInSeries(0, false, {0.05, 1e-18}), -0.05);
  for (const double useless : {0.0, -3.0, std::nan(""), HUGE_VAL})
    EXPECT_EQ(nextInSeries(0, true, {useless, 1e-18}), 1);
  EXPECT_EQ(nextInSeries(1, false, {1, 1}), 0) << "whole numbers end at 1";
  EXPECT_EQ(nextInSeries(-1, true, {1, 1}), 0);
}

TEST(SpinnerSteps, Decades) {
  const StepCase cases[] = {
      {4.7e3, 4.7e4, 470}, {1, 10, 0.1},      {0.3, 3, 0.03},
      {-5, -0.5, -50},     {5e-18, 5e-17, 0}, {-5e-18, 0, -5e-17},
      {0, 1, -1},          {1e-18, 1e-17, 0}, {1234.5678, 12345.678, 123.45678},
  };
  for (const StepCase& step : cases) {
    EXPECT_EQ(nextDecade(step.from, true), step.up) << step.from << " up";
    EXPECT_EQ(nextDecade(step.from, false), step.down) << step.from << " down";
  }
}

// Every number of the series over 36 decades, from its decimal text, is met on the way up and, in
// reverse, on the way down.
TEST(SpinnerSteps, SeriesIsExactOverAllDecadesBothWays) {
  std::vector<double> series;
  for (int exponent = -18; exponent < 18; ++exponent)
    for (const char* digit : {"1", "2", "5"})
      series.push_back(std::stod(digit + ("e" + std::to_string(exponent))));
  for (const double sign : {1.0, -1.0}) {
    double value = series.front();
    for (std::size_t i = 1; i < series.size(); ++i) {
      value = nextInSeries(sign * value, sign > 0) * sign;
      ASSERT_EQ(value, series[i]) << i;
    }
    for (std::size_t i = series.size() - 1; i-- > 0;) {
      value = nextInSeries(sign * value, sign < 0) * sign;
      ASSERT_EQ(value, series[i]) << i;
    }
    EXPECT_EQ(nextInSeries(sign * value, sign < 0), 0);
  }
}

TEST(SpinnerSteps, PlainStepsStayOnTheGrid) {
  struct Case {
    double value, increment;
    int count;
    double expected;
  } const cases[] = {
      {0.1, 0.2, 1, 0.3},
      {0.3, 0.1, -3, 0},
      {0.7, 0.1, 1, 0.8},
      {1.1, 0.05, 10, 1.6},
      {0.1 + 0.2, 0.1, 1, 0.4},
      {1e6, 1e-3, 1, 1000000.001},
      {-0.1, 0.1, 1, 0},
      {1e300, 1, 1, 1e300},
      {4.7e-9, 1e-10, 1, 4.8e-9},
      {5e-324, 5e-324, 1, 1e-323},
      {largest, largest, 1, largest},
      {1, std::nan(""), 1, 1},
      {1, HUGE_VAL, -1, 1},
  };
  for (const Case& step : cases)
    EXPECT_EQ(plainStep(step.value, step.increment, step.count), step.expected)
        << step.value << " + " << step.count << " * " << step.increment;
  EXPECT_FALSE(std::signbit(plainStep(-0.1, 0.1, 1)));

  // A thousand small steps end where one large one does, and come back.
  double value = 0;
  for (int i = 1; i <= 1000; ++i) {
    value = plainStep(value, 0.01, 1);
    ASSERT_EQ(value, std::stod(std::to_string(i) + "e-2"));
  }
  for (int i = 999; i >= -1000; --i) {
    value = plainStep(value, 0.01, -1);
    ASSERT_EQ(value, std::stod(std::to_string(i) + "e-2"));
  }
}

} // namespace
