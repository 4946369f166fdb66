#include "HostSupport/Options.h"

#include "HostSupport/Registration.h"

#include "SettingsFixture.h"

#include <climits>
#include <cstdint>
#include <type_traits>

namespace {

class Options : public SettingsFixture {};

TEST_F(Options, ValuesPersistAsText) {
  EXPECT_TRUE(sp_WriteOption("Text", "a \"b\"\n\u00b5"));
  EXPECT_TRUE(sp_WriteOption("Flag", true));
  EXPECT_TRUE(sp_WriteOption("Number", OptionValue(4700)));
  EXPECT_TRUE(sp_WriteOption("Real", OptionValue(0.1)));
  forget();
  EXPECT_STREQ(sp_GetStringOption("Text"), "a \"b\"\n\u00b5");
  EXPECT_STREQ(sp_GetStringOption("Flag"), "true");
  EXPECT_EQ(sp_GetIntOption("Number"), 4700);
  EXPECT_STREQ(sp_GetStringOption("Real"), "0.1");
  EXPECT_TRUE(sp_RemoveOption("Text"));
  EXPECT_TRUE(sp_RemoveOption("Text"));
  EXPECT_STREQ(sp_GetStringOption("Text"), "");
  EXPECT_STREQ(sp_GetStringOption("text"), "");
  EXPECT_TRUE(messages().empty());
}

// A value goes to the form of its own kind, whatever else it could be converted to.
TEST_F(Options, EachKindIsStoredAsItself) {
  const int number = 7;
  EXPECT_TRUE(sp_WriteOption("Value", number));
  EXPECT_STREQ(sp_GetStringOption("Value"), "7");
  EXPECT_TRUE(sp_WriteOption("Value", 0.5));
  EXPECT_STREQ(sp_GetStringOption("Value"), "0.5");
  EXPECT_TRUE(sp_WriteOption("Value", 4'000'000'000u));
  EXPECT_STREQ(sp_GetStringOption("Value"), "4000000000");
  EXPECT_TRUE(sp_WriteOption("Value", std::int64_t{-4611686018427387904}));
  EXPECT_STREQ(sp_GetStringOption("Value"), "-4611686018427387904");
  EXPECT_TRUE(sp_WriteOption("Value", false));
  EXPECT_STREQ(sp_GetStringOption("Value"), "false");
  EXPECT_TRUE(sp_WriteOption("Value", YString("a").concat("b")));
  EXPECT_STREQ(sp_GetStringOption("Value"), "ab");
  EXPECT_FALSE((std::is_constructible_v<OptionValue, void*>));
}

// Modules that know the records only go by these numbers.
TEST_F(Options, CodesOfTheKinds) {
  const struct {
    OptionValue value;
    int code;
  } cases[] = {{"a", 0}, {YString(), 0}, {0.5, 1}, {true, 2}, {OptionValue(), 3}, {5, 4}};
  for (const auto& example : cases)
    EXPECT_EQ(static_cast<int>(example.value.kind()), example.code);
}

TEST_F(Options, WhatCountsAsTrue) {
  const struct {
    const char* text;
    bool value;
  } cases[] = {{"false", false}, {"FALSE", false}, {"0", false}, {"No", false}, {"oFF", false},
               {"", false},      {"true", true},   {"1", true},  {"yes", true}, {"0.0", true}};
  for (const auto& example : cases) {
    ASSERT_TRUE(sp_WriteOption("Flag", example.text));
    bool exists = false;
    EXPECT_EQ(sp_GetBoolOption("Flag", &exists), example.value) << example.text;
    EXPECT_TRUE(exists);
    EXPECT_EQ(OptionValue(example.text).toBool(), example.value);
  }
  bool exists = true;
  EXPECT_FALSE(sp_GetBoolOption("Missing", &exists));
  EXPECT_FALSE(exists);
  EXPECT_FALSE(sp_GetBoolOption(nullptr));
}

TEST_F(Options, NumbersAreReadTheSimulatorsWay) {
  const struct {
    const char* text;
    int value;
  } cases[] = {{"42", 42},         {" -7 ", -7},     {"4.7k", 4700}, {"1e400", INT_MAX},
               {"-1e30", INT_MIN}, {"1.9", 1},       {"no", 0},      {"", 0},
               {"0x10", 0},        {"12 inches", 0}, {"nan", 0}};
  for (const auto& example : cases)
    EXPECT_EQ(OptionValue(example.text).toInt(), example.value) << example.text;
}

TEST_F(Options, ValuesCompareAsTheyAreStored) {
  EXPECT_EQ(OptionValue(5), OptionValue("5"));
  EXPECT_EQ(OptionValue(true), OptionValue("true"));
  EXPECT_NE(OptionValue(), OptionValue(""));
  EXPECT_EQ(OptionValue(), OptionValue());
  EXPECT_NE(OptionValue(0.1), OptionValue(0.2));
}

TEST_F(Options, AreOfTheKindThatTheyAreDeclaredOf) {
  const struct {
    OptionValue declared;
    const char* stored;
    OptionValue current;
  } cases[] = {{true, "false", false},
               {false, "TRUE", true},
               {true, "", false},
               {5, "7", 7},
               {5, "4.7k", 4700},
               {5, "-1.9", -1},
               {5, "seven", 5},
               {5, "", 5},
               {0.5, "1m", 0.001},
               {0.5, "2", 2.0},
               {0.5, "2 of them", 0.5},
               {"Split", "7", "7"},
               {"", "true", "true"},
               {OptionValue(), "true", true},
               {OptionValue(), "FALSE", false},
               {OptionValue(), "1", "1"},
               {OptionValue(), "off", "off"},
               {OptionValue(), "", ""}};
  int number = 0;
  for (const auto& example : cases) {
    const YString key = YString("Kind").concat(YString(++number));
    const MakeOption declaration("a.cpp", 1, key, example.declared);
    const MakeOption withoutDefault("b.cpp", 2, key, false, OptionCacheStatus::Cached, false);
    const auto expectCurrent = [&](const OptionValue& expected) {
      OptionValue current;
      OptionValue defaultValue;
      EXPECT_TRUE(sp_ReadOptionsInfo(key, &current, &defaultValue)) << key;
      EXPECT_EQ(current.kind(), expected.kind()) << key;
      EXPECT_EQ(current, expected) << key;
      EXPECT_EQ(defaultValue.kind(), example.declared.kind()) << key;
      EXPECT_EQ(defaultValue, example.declared) << key;
    };
    expectCurrent(example.declared);
    ASSERT_TRUE(sp_WriteOption(key, example.stored));
    expectCurrent(example.current);
    EXPECT_STREQ(sp_GetStringOption(key), example.stored);
    ASSERT_TRUE(sp_WriteOption(key, OptionValue()));
    expectCurrent(example.declared);
  }
}

TEST_F(Options, ManyAreWrittenAtOnce) {
  ASSERT_TRUE(sp_WriteOption("Gone", "there"));
  EXPECT_TRUE(sp_WriteOptions({}));
  EXPECT_TRUE(sp_WriteOptions({{"Gone", OptionValue()},
                               {"Flag", false},
                               {"Number", 4700},
                               {"Twice", "first"},
                               {"Twice", "last"},
                               {"Never", "there"},
                               {"Never", OptionValue()}}));
  forget();
  EXPECT_EQ(get("options.json"), "{\n    \"Flag\": \"false\",\n    \"Number\": \"4700\",\n"
                                 "    \"Twice\": \"last\"\n}\n");
}

TEST_F(Options, ColoursAndDeclaredDefaults) {
  EXPECT_EQ(sp_GetColourOption("Colour", 0x123456), 0x123456);
  sp_MakeColourOption("file.cpp", 3, "Colour", "#a0B1c2");
  EXPECT_EQ(sp_GetColourOption("Colour", 0x123456), 0xC2B1A0);
  OptionValue current;
  OptionValue defaultValue;
  EXPECT_TRUE(sp_ReadOptionsInfo("Colour", &current, &defaultValue));
  EXPECT_EQ(current, defaultValue);
  EXPECT_STREQ(defaultValue.toText(), "#a0B1c2");
  ASSERT_TRUE(sp_WriteOption("Colour", "#010203"));
  EXPECT_EQ(sp_GetColourOption("Colour", 0), 0x030201);
  EXPECT_TRUE(sp_ReadOptionsInfo("Colour", &current, &defaultValue));
  EXPECT_STREQ(current.toText(), "#010203");
  EXPECT_STREQ(defaultValue.toText(), "#a0B1c2");
  ASSERT_TRUE(sp_WriteOption("Colour", "255"));
  EXPECT_EQ(sp_GetColourOption("Colour", 0), 255);
  for (const char* bad :
       {"#12345", "#1234567", "#12345g", "#-12345", "bluish", "-1", "1e9", "#", ""}) {
    ASSERT_TRUE(sp_WriteOption("Colour", bad));
    EXPECT_EQ(sp_GetColourOption("Colour", 7), 7) << bad;
  }
  EXPECT_FALSE(sp_ReadOptionsInfo("Unheard of", &current, &defaultValue));
  EXPECT_EQ(current, OptionValue());
  EXPECT_FALSE(sp_ReadOptionsInfo(nullptr, nullptr, nullptr));
}

TEST_F(Options, SettingsHaveSections) {
  EXPECT_TRUE(cfgman_WriteConfigSetting("ColumnWidths", "Dialog", "10;20"));
  EXPECT_TRUE(cfgman_WriteConfigSetting("Other", "Dialog", ""));
  forget();
  YString value("untouched");
  EXPECT_FALSE(cfgman_GetConfigSetting("Nowhere", "Dialog", &value));
  EXPECT_FALSE(cfgman_GetConfigSetting(nullptr, "Dialog", &value));
  EXPECT_FALSE(cfgman_GetConfigSetting("Other", nullptr, &value));
  EXPECT_STREQ(value, "untouched");
  EXPECT_TRUE(cfgman_GetConfigSetting("Other", "Dialog", &value));
  EXPECT_STREQ(value, "");
  char buffer[6] = "#####";
  EXPECT_FALSE(cfgman_GetConfigSetting("ColumnWidths", "Dialog", buffer, 5));
  EXPECT_TRUE(cfgman_GetConfigSetting("ColumnWidths", "Dialog", buffer, 6));
  EXPECT_STREQ(buffer, "10;20");
  EXPECT_TRUE(cfgman_WriteConfigSetting("Other", "Dialog", nullptr));
  EXPECT_FALSE(cfgman_GetConfigSetting("Other", "Dialog", &value));
  EXPECT_FALSE(cfgman_WriteConfigSetting(nullptr, "Key", "x"));
  EXPECT_FALSE(cfgman_WriteConfigSetting("Section", "", "x"));
}

TEST_F(Options, StrangeTextsDoNoHarm) {
  EXPECT_TRUE(sp_WriteOption("Good", "stays"));
  EXPECT_TRUE(sp_WriteOption("\xff\xfe", "\xc3 not UTF-8 \xff"));
  EXPECT_TRUE(sp_WriteOption("\xff\xfe", "\xc3 not UTF-8 \xff"));
  EXPECT_TRUE(sp_WriteOption("Nul", YString("a\0b", 3)));
  EXPECT_TRUE(sp_WriteOption(YString(std::string(100'000, 'k')), "long key"));
  EXPECT_FALSE(sp_WriteOption("", "x"));
  EXPECT_FALSE(sp_WriteOption("Huge", YString(std::string(70'000'000, 'x'))));
  // Grows beyond the limit only as it is written: each byte becomes an escape.
  EXPECT_FALSE(sp_WriteOption("Huge", YString(std::string(30'000'000, '\x01'))));
  forget();
  EXPECT_STREQ(sp_GetStringOption("Good"), "stays");
  EXPECT_EQ(sp_GetStringOption("Nul").length(), 3u);
  EXPECT_NE(sp_GetStringOption("\xff\xfe").length(), 0u);
}

// A sink that asks for options in turn, as a window that restores its geometry would.
TEST_F(Options, TheMessageSinkMayUseOptions) {
  put("options.json", "damaged");
  sp_SetMessageSink([](const char*) { sp_WriteOption("Told", true); });
  EXPECT_STREQ(sp_GetStringOption("Any"), "");
  EXPECT_TRUE(sp_GetBoolOption("Told"));
}

} // namespace
