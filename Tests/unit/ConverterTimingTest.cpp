#include "Core/Digital/ConverterTiming.h"

#include <gtest/gtest.h>

#include <limits>

TEST(ConverterTiming, IsAtLeastTheReciprocal) {
  const struct {
    double present, other, possible;
  } cases[] = {
      {500e3, 1e-6, 1e6}, {2e6, 1e-6, 2e6}, {1e-6, 2e6, 1e-6}, {1e-6, 500e3, 2e-6},
      {0, 4, 0.25},       {2e6, 0, 2e6},    {2e6, -1e-6, 2e6}, {-1, 4, 0.25},
  };
  for (const auto& c : cases)
    EXPECT_EQ(atLeastReciprocal(c.present, c.other), c.possible) << c.present << ' ' << c.other;
  EXPECT_EQ(atLeastReciprocal(1, std::numeric_limits<double>::quiet_NaN()), 1);
}

TEST(ConverterTiming, OneThatFollowedTheOtherDoesNotMoveIt) {
  for (int i = 1; i <= 5000; ++i) {
    const double time = i * 1e-9;
    const double rate = atLeastReciprocal(0, time);
    EXPECT_EQ(atLeastReciprocal(time, rate), time) << i;
  }
}
