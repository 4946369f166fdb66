#include "Core/Analog/PreferredValues.h"
#include "Core/Pieces/AsWritten.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(PreferredValues, NeighboursStayInTheirDecade) {
  constexpr PreferredSeries e24 = PreferredSeries::E24;
  constexpr PreferredSeries e12 = PreferredSeries::E12;
  constexpr PreferredSeries e6 = PreferredSeries::E6;
  const struct {
    double value;
    PreferredSeries series;
    double below;
    double above;
  } cases[] = {
      {1, e24, 1, 1.1},     {1, e12, 1, 1.2},       {1, e6, 1, 1.5},
      {9.1, e24, 8.2, 9.1}, {9.1, e12, 6.8, 8.2},   {8.2, e12, 6.8, 8.2},
      {6.8, e6, 4.7, 6.8},  {9.1, e6, 4.7, 6.8},    {4.7, e24, 4.3, 5.1},
      {4.7, e12, 3.9, 5.6}, {4.7, e6, 3.3, 6.8},    {4.8, e24, 4.3, 5.1},
      {5.1, e12, 3.9, 5.6}, {1.05, e6, 1, 1.5},     {0.5, e24, 0, 1},
      {0.5, e12, 1, 1.2},   {0.5, e6, 1, 1.5},      {-4.7, e24, 0, 1},
      {0, e6, 1, 1.5},      {1e300, e24, 8.2, 9.1}, {std::nan(""), e12, 1, 1.2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(preferredBelow(c.value, c.series), c.below) << c.value << " " << int(c.series);
    EXPECT_EQ(preferredAbove(c.value, c.series), c.above) << c.value << " " << int(c.series);
  }
}

TEST(PreferredValues, BaseTimesDecadeIsTheValue) {
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    double value;
    double base;
    double decade;
  } cases[] = {
      {4700, 4.7, 1000},   {4.7e-9, 4.7, 1e-9},    {-4700, -4.7, 1000},     {0, 0, 1},
      {1000, 1, 1000},     {0.001, 1, 0.001},      {999.999, 9.99999, 100}, {1e100, 1, 1e100},
      {5e-324, 5e-324, 1}, {infinity, infinity, 1}};
  for (const auto& c : cases) {
    const BaseAndDecade split = splitValue(c.value);
    EXPECT_EQ(split.base, c.base) << c.value;
    EXPECT_EQ(split.decade, c.decade) << c.value;
  }
  for (int exponent = -18; exponent <= 18; ++exponent)
    for (double base : {1.0, 1.1, 2.7, 4.7, 9.1}) {
      const double value = asWritten(base * std::pow(10, exponent));
      const BaseAndDecade split = splitValue(value);
      EXPECT_EQ(split.base, base) << value;
      EXPECT_EQ(asWritten(split.base * split.decade), value) << value;
    }
}
