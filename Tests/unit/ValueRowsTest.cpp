#include "Core/Generic/ValueRows.h"

#include <gtest/gtest.h>

TEST(ValueRows, ModeWordsInAnyCase) {
  EXPECT_EQ(valueModeOf("SWITCH"), ValueMode::Switch);
  EXPECT_EQ(valueModeOf("transmissionline"), ValueMode::TransmissionLine);
  for (const char* other : {"", "Switches", "Switch ", static_cast<const char*>(nullptr)})
    EXPECT_EQ(valueModeOf(other), ValueMode::Plain);
}

TEST(ValueRows, PulseWidthFollowsThePeriodDownOnly) {
  const struct {
    double period, width;
    std::optional<double> corrected;
    double max;
  } cases[] = {
      {2, 5, 2.0, 2}, {2, 2, {}, 2}, {2, 1, {}, 2}, {0, 5, {}, 1e18}, {-1, 5, {}, 1e18},
  };
  for (const auto& c : cases) {
    const ValueRowLink link = valueRowLink(ValueMode::DigitalPulse, c.period, c.width);
    EXPECT_EQ(link.value, c.corrected) << c.period << ' ' << c.width;
    EXPECT_EQ(link.max, c.max) << c.period << ' ' << c.width;
    EXPECT_FALSE(link.min);
  }
}
