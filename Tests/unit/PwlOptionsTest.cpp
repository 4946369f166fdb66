#include "Core/Pwl/PwlOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using InitialCondition = PwlOptions::InitialCondition;

namespace {

PwlOptions optionsOf(const std::vector<const char*>& texts) {
  return readPwlOptions(Texts(texts.data(), static_cast<unsigned>(texts.size())));
}

/// Nine options, all of them asking for nothing, with one in another way.
PwlOptions with(unsigned place, const char* text) {
  std::vector<const char*> texts = {"T", "X", "Y", "", "-1", "1", "256", "0", "0"};
  texts[place] = text;
  return optionsOf(texts);
}

std::string orNone(const std::optional<QString>& text) {
  return text ? '"' + text->toStdString() + '"' : "none";
}

} // namespace

TEST(PwlOptions, WhatIsNotPassedIsAsTheFormHasIt) {
  const PwlOptions none = optionsOf({});
  EXPECT_EQ(orNone(none.title) + orNone(none.xHeading) + orNone(none.yHeading), "nonenonenone");
  EXPECT_EQ(none.helpContext, -1);
  EXPECT_EQ(none.leastPoints, 1);
  EXPECT_EQ(none.mostRows, 256);
  EXPECT_FALSE(none.offersSymmetric || none.offersRepeat || none.isMultiLevel);
  EXPECT_EQ(none.initialCondition, InitialCondition::None);
  EXPECT_EQ(none.converter, EnergyStorage::None);

  // An empty text has been passed.
  const PwlOptions empty = optionsOf({"", "", "", "", ""});
  EXPECT_EQ(orNone(empty.title) + orNone(empty.xHeading) + orNone(empty.yHeading), R"("""""")");
  EXPECT_EQ(empty.helpContext, 0);
  EXPECT_EQ(orNone(optionsOf({"a", "b"}).xHeading), "\"b\"");
  EXPECT_EQ(orNone(optionsOf({"a", "b"}).yHeading), "none");
}

TEST(PwlOptions, LimitsLeaveRoomForARowToTypeIn) {
  const struct {
    const char* least;
    const char* most;
    int leastPoints;
    int mostRows;
  } cases[] = {
      {"1", "10", 1, 11},
      {"-3", "10", 1, 11},
      {"", "", 1, 256},
      {"x", "x", 1, 256},
      {"5", "5", 5, 6},
      {"5", "4", 5, 256},
      {"1", "-7", 1, 256},
      {"1", "0", 1, 256},
      {" 2x", "3y", 2, 4},
      {"300", "9", 300, 256},
      {"1", "9999999999", 1, 2147483647},
  };
  for (const auto& each : cases) {
    const PwlOptions options = optionsOf({"", "", "", "", "-1", each.least, each.most});
    EXPECT_EQ(options.leastPoints, each.leastPoints) << each.least << ' ' << each.most;
    EXPECT_EQ(options.mostRows, each.mostRows) << each.least << ' ' << each.most;
  }
}

TEST(PwlOptions, InitialConditionsHaveWordsAndStandNotBesideARepeatCount) {
  const std::pair<const char*, InitialCondition> cases[] = {
      {"segment", InitialCondition::Segment},       {"SEGMENT", InitialCondition::Segment},
      {"Continuous", InitialCondition::Continuous}, {"segments", InitialCondition::None},
      {" segment", InitialCondition::None},         {"", InitialCondition::None},
  };
  for (const auto& [word, kind] : cases) {
    EXPECT_EQ(with(3, word).initialCondition, kind) << word;
    const PwlOptions repeated = optionsOf({"", "", "", word, "", "", "", "", "1"});
    EXPECT_EQ(repeated.initialCondition, InitialCondition::None) << word;
  }
}

TEST(PwlOptions, TheTitleSaysWhatTheConverterIsFor) {
  const std::pair<const char*, EnergyStorage> cases[] = {
      {"Define PWL Inductor", EnergyStorage::Inductor},
      {"L1: define pwl inductor (20 A)", EnergyStorage::Inductor},
      {"Define PWL Capacitor C1", EnergyStorage::Capacitor},
      {"Define PWL Capacitor or Define PWL Inductor", EnergyStorage::Inductor},
      {"Define PWL Source", EnergyStorage::None},
      {"Define PWL  Inductor", EnergyStorage::None},
      {"Inductor", EnergyStorage::None},
  };
  for (const auto& [title, kind] : cases)
    EXPECT_EQ(with(0, title).converter, kind) << title;
}

TEST(PwlOptions, FlagsAreNumbersAndEightTextsAMultiLevelComponent) {
  for (const char* text : {"1", "-1", "2 of them"}) {
    EXPECT_TRUE(with(7, text).offersSymmetric) << text;
    EXPECT_TRUE(with(8, text).offersRepeat) << text;
  }
  for (const char* text : {"0", "", "true", "0.5"})
    EXPECT_FALSE(with(7, text).offersSymmetric || with(8, text).offersRepeat) << text;
  for (std::size_t count = 0; count < 12; ++count)
    EXPECT_EQ(optionsOf(std::vector<const char*>(count, "1")).isMultiLevel, count == 8) << count;
  EXPECT_EQ(with(4, "3001 ").helpContext, 3001);
  EXPECT_EQ(with(4, "3001 ").helpContextText, QStringLiteral("3001 "));
}
