#include "Core/Properties/ObjectProperties.h"

#include <gtest/gtest.h>

#include <random>

using Kind = PropertyKind;

TEST(ObjectProperties, TypeWordsInAnyCase) {
  const struct {
    const char* type;
    Kind kind;
  } cases[] = {
      {"", Kind::Text},
      {nullptr, Kind::Text},
      {"String", Kind::Text},
      {"FONT", Kind::Font},
      {"colour", Kind::Colour},
      {"schemproperty", Kind::Flagged},
      {"SYMBOLPROPERTY", Kind::Flagged},
      {"*", Kind::ReadOnly},
      {"**", Kind::Choice},
      {" Font", Kind::Choice},
      {"Label", Kind::Choice},
      {"Font|Colour", Kind::Choice},
  };
  for (const auto& c : cases)
    EXPECT_EQ(propertyKind(c.type), c.kind) << (c.type ? c.type : "null");
}

TEST(ObjectProperties, AttributesStandBehindTheLastSemicolon) {
  const struct {
    const char* passed;
    const char* text;
    std::optional<int> attributes;
  } cases[] = {
      {"10k;256", "10k", 256},
      {"10k", "10k", {}},
      {"", "", {}},
      {nullptr, "", {}},
      {";", "", 0},
      {";64", "", 64},
      {"a;b;c;-1", "a;b;c", -1},
      {"a;;;7", "a;;", 7},
      {"a; 12x", "a", 12},
      {"a;x", "a", 0},
      {"a;4294967173", "a", -123},
      {"a\nb;1", "a\nb", 1},
  };
  for (const auto& c : cases) {
    const PropertyValue value = readPropertyValue(c.passed, Kind::Flagged);
    EXPECT_EQ(value.text.toStdString(), c.text);
    EXPECT_EQ(value.attributes, c.attributes) << c.text;
    const PropertyValue plain = readPropertyValue(c.passed, Kind::Text);
    EXPECT_EQ(plain.text.toStdString(), c.passed ? c.passed : "");
    EXPECT_FALSE(plain.attributes);
  }
}

TEST(ObjectProperties, WhatNobodyChangedGoesBackWithItsNumber) {
  std::mt19937 random(7);
  const std::string letters = ";;;\\n\n\r01-9 a\xff\xc3\xa9";
  for (int round = 0; round < 5000; ++round) {
    std::string passed(random() % 12, ' ');
    for (char& letter : passed)
      letter = letters[random() % letters.size()];
    const auto written = [&passed](Kind kind) {
      return std::string(
          writePropertyValue(readPropertyValue(passed.c_str(), kind), passed.c_str(), kind)
              .c_str());
    };
    EXPECT_EQ(written(Kind::Text), passed) << "round " << round;
    const std::size_t mark = passed.rfind(';') + 1; // 0 where there is none
    const std::string number = mark ? std::to_string(std::atoi(passed.c_str() + mark)) : passed;
    EXPECT_EQ(written(Kind::Flagged), passed.substr(0, mark) + number) << "round " << round;
  }
}

TEST(ObjectProperties, WhatIsChangedIsWrittenWithItsFlags) {
  const struct {
    const char* passed;
    const char* text;
    std::optional<int> attributes;
    const char* written;
  } cases[] = {
      {"10k;256", "22k", 256, "22k;256"},
      {"10k;256", "10k", 257, "10k;257"},
      {"a;b;256", "a;c", 256, "a;c;256"},
      {"10k", "22k", {}, "22k"},
      {"10k", "10k", 0, "10k;0"},
      {"10k;x", "22k", 0, "22k;0"},
      {"10k;1", "", 1, ";1"},
      {nullptr, "new", 512, "new;512"},
  };
  for (const auto& c : cases)
    EXPECT_STREQ(
        writePropertyValue({QString::fromUtf8(c.text), c.attributes}, c.passed, Kind::Flagged)
            .c_str(),
        c.written);
}

TEST(ObjectProperties, LineBreaksAreShownAsTwoCharacters) {
  EXPECT_EQ(shownPropertyText(QStringLiteral("a\n\nb")), QStringLiteral("a\\n\\nb"));
  EXPECT_EQ(typedPropertyText(QStringLiteral("\\na\\\\nb\\")), QStringLiteral("\na\\\nb\\"));
}

TEST(ObjectProperties, ChoicesAndTheCurrentOne) {
  EXPECT_EQ(propertyChoices("Auto|On||Off"),
            QStringList(
                {QStringLiteral("Auto"), QStringLiteral("On"), QString(), QStringLiteral("Off")}));
  const QStringList choices = propertyChoices("on|ON|Off||x");
  const struct {
    const char* value;
    int choice;
  } cases[] = {{"on", 0}, {"ON", 1}, {"On", 0}, {"off", 2}, {"", 3}, {"o", -1}};
  for (const auto& c : cases)
    EXPECT_EQ(propertyChoice(choices, QString::fromUtf8(c.value)), c.choice) << c.value;
}
