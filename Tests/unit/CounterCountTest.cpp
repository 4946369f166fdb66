#include "Core/Digital/CounterCount.h"

#include <gtest/gtest.h>

TEST(CounterCount, IsWhatTheBitsAllow) {
  const struct {
    CounterCount wanted;
    double bits;
    CounterCount possible;
  } cases[] = {
      {{true, 255}, 1, {true, 1}},
      {{true, 255}, 16, {true, 65535}},
      {{false, 100}, 8, {false, 100}},
      {{false, 100}, 4, {false, 15}},
      {{false, 100}, 31, {false, 100}},
      {{false, 3e9}, 31, {false, 2147483647}},
      {{false, 100}, 32, {true, 4294967295}},
      {{false, 100}, 31.5, {true, highestCount(31.5)}},
  };
  for (const auto& c : cases) {
    const CounterCount possible = possibleCount(c.wanted, c.bits);
    EXPECT_EQ(possible.isMaximum, c.possible.isMaximum) << c.bits;
    EXPECT_EQ(possible.count, c.possible.count) << c.bits;
    EXPECT_EQ(canChooseCount(c.bits), c.bits <= 31);
  }
}
