#include "HostSupport/Numbers.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Reading {
  const char* text;
  double value;
  const char* rest; // what is left where reading stopped
};

class ReadNumber : public testing::TestWithParam<Reading> {};

TEST_P(ReadNumber, ValueAndEnd) {
  const Reading& reading = GetParam();
  char* end = nullptr;
  EXPECT_EQ(sp_ConvertEngToReal(reading.text, &end), reading.value) << reading.text;
  EXPECT_STREQ(end, reading.rest) << reading.text;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ReadNumber,
    testing::Values(
        // suffixes, in any case, with and without a unit
        Reading{"4.7k", 4700, ""}, Reading{"2Meg", 2e6, ""}, Reading{"2MEGohm", 2e6, ""},
        Reading{"9M", 9e-3, ""}, Reading{"9me", 9e-3, ""}, Reading{"9mH", 9e-3, ""},
        Reading{"10kOhm", 1e4, ""}, Reading{"5V", 5, ""}, Reading{"1T", 1e12, ""},
        Reading{"1g", 1e9, ""}, Reading{"1.5U", 1.5e-6, ""}, Reading{"3n", 3e-9, ""},
        Reading{"3P", 3e-12, ""}, Reading{"3f", 3e-15, ""}, Reading{"3A", 3e-18, ""},
        Reading{"2\u00b5F", 2e-6, ""}, Reading{"2\u03bcF", 2e-6, ""}, Reading{"5\u03a9", 5, ""},
        Reading{"20%", 20, ""}, Reading{"1.00000001k", 1000.00001, ""},
        // digits, signs and exponents
        Reading{"-.5", -0.5, ""}, Reading{"+5.", 5, ""}, Reading{" \t\n7", 7, ""},
        Reading{"1e-9", 1e-9, ""}, Reading{"1E+3k", 1e6, ""}, Reading{"5e", 5, ""},
        Reading{"5e+", 5, "+"}, Reading{"0x1F", 0, "1F"}, Reading{"1,5", 1, ",5"},
        Reading{"2k2", 2000, "2"}, Reading{"1.2.3", 1.2, ".3"}, Reading{"5 V", 5, " V"},
        // no numbers
        Reading{"", 0, ""}, Reading{" x", 0, " x"}, Reading{".", 0, "."}, Reading{"-", 0, "-"},
        Reading{"+-1", 0, "+-1"}, Reading{"k", 0, "k"}, Reading{"inf", 0, "inf"},
        Reading{"nan", 0, "nan"}, Reading{"{a}", 0, "{a}"},
        // the limits of a double
        Reading{"1e400", infinity, ""}, Reading{"-1e308k", -infinity, ""}, Reading{"1e-400", 0, ""},
        Reading{"1e99999999999999999999", infinity, ""}, Reading{"0e99999999999999999999", 0, ""},
        Reading{"4.9e-324", 5e-324, ""}, Reading{"2.4e-324", 0, ""},
        Reading{"1.7976931348623157e308", 1.7976931348623157e308, ""},
        Reading{"9007199254740993", 9007199254740992, ""},
        Reading{"9007199254740993.00000000000000000000000000001", 9007199254740994, ""},
        Reading{"0.000000000000000000000000000001T", 1e-18, ""}));

TEST(Numbers, NullIsNoNumber) {
  char* end = nullptr;
  EXPECT_EQ(sp_ConvertEngToReal(static_cast<const char*>(nullptr), &end), 0);
  EXPECT_EQ(end, nullptr);
  EXPECT_FALSE(sp_IsEngNumber(nullptr));
}

TEST(Numbers, WholeTextIsANumber) {
  for (const char* text : {"1", " 4.7k ", "10kOhm\n", "1e400", "5%"})
    EXPECT_TRUE(sp_IsEngNumber(text)) << text;
  for (const char* text : {"", " ", "1 2", "2k2", "{1}", "1+", "5_V", "nan", "-"}) {
    double value = 42;
    EXPECT_FALSE(sp_IsEngNumber(text, &value)) << text;
    EXPECT_EQ(value, 42) << text;
  }
}

// Exactness, against the standard's correctly rounded reader.
TEST(Numbers, NearestDoubleWhateverTheForm) {
  const unsigned seed = std::random_device{}();
  std::mt19937_64 random(seed);
  constexpr struct {
    const char* suffix;
    int exponent;
  } suffixes[] = {{"T", 12}, {"Meg", 6}, {"", 0}, {"m", -3}, {"f", -15}, {"a", -18}};
  for (int i = 0; i < 50'000; ++i) {
    std::string digits;
    const std::size_t count = 1 + random() % (i % 50 == 0 ? 900 : 25);
    while (digits.size() < count)
      digits += static_cast<char>('0' + random() % 10);
    const std::size_t point = random() % (count + 1);
    const int exponent = static_cast<int>(random() % 640) - 320 - static_cast<int>(point);
    const auto& suffix = suffixes[random() % std::size(suffixes)];
    std::string text = digits;
    text.insert(point, ".");
    const std::string plain = text + "e" + std::to_string(exponent + suffix.exponent);
    text += "e" + std::to_string(exponent) + suffix.suffix;
    EXPECT_EQ(sp_ConvertEngToReal(text.c_str()), std::strtod(plain.c_str(), nullptr))
        << text << " seed " << seed;
  }
}

TEST(Numbers, LongTextsTakeLinearTime) {
  const std::string zeros(1'000'000, '0');
  EXPECT_EQ(sp_ConvertEngToReal(("0." + zeros + "1e1000001").c_str()), 1);
  EXPECT_EQ(sp_ConvertEngToReal(("1" + zeros + "e-1000000").c_str()), 1);
  EXPECT_EQ(sp_ConvertEngToReal(("1." + zeros + "V").c_str()), 1);
}

struct Writing {
  double value;
  int digits;
  const char* eng;
  const char* plain;
};

class WriteNumber : public testing::TestWithParam<Writing> {};

TEST_P(WriteNumber, EngineeringAndPlain) {
  const Writing& writing = GetParam();
  EXPECT_STREQ(sp_ConvertRealToJSEng(writing.value, writing.digits, false), writing.eng);
  EXPECT_STREQ(sp_ConvertRealToPlain(writing.value, writing.digits), writing.plain);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, WriteNumber,
    testing::Values(
        Writing{4700, 6, "4.7k", "4700"}, Writing{9e6, 6, "9Meg", "9000000"},
        Writing{0.1, 6, "100m", "0.1"}, Writing{-1.5e-6, 6, "-1.5u", "-0.0000015"},
        Writing{1, 6, "1", "1"}, Writing{0, 6, "0", "0"}, Writing{-0.0, 6, "0", "0"},
        Writing{123456789, 6, "123.457Meg", "123457000"}, Writing{123, 1, "100", "100"},
        Writing{1e-18, 6, "1a", "1e-18"}, Writing{9.9e-19, 6, "9.9e-19", "9.9e-19"},
        Writing{999e12, 6, "999T", "999000000000000"}, Writing{1.5e21, 6, "1.5e21", "1.5e21"},
        Writing{1e15, 6, "1e15", "1e15"}, Writing{1e-30, 15, "1e-30", "1e-30"},
        // carries
        Writing{999.9999996, 6, "1k", "1000"}, Writing{999999.6, 6, "1Meg", "1000000"},
        Writing{999.9999999e12, 6, "1e15", "1e15"}, Writing{9.9999999e-19, 6, "1a", "1e-18"},
        Writing{99.99996, 6, "100", "100"}, Writing{0.99999951, 6, "1", "1"},
        // where the shortest digits are a midpoint and the value is not
        Writing{1.000005, 6, "1.00001", "1.00001"}, Writing{1.000025, 6, "1.00002", "1.00002"},
        Writing{2.5, 1, "2", "2"}, Writing{0.15, 1, "100m", "0.1"},
        Writing{0.000123456789012345, 15, "123.456789012345u", "1.23456789012345e-4"},
        Writing{0.1 + 0.2, 15, "300m", "0.3"},
        Writing{0.1 + 0.2, 99, "300.00000000000004m", "3.0000000000000004e-1"},
        Writing{5e-324, 17, "5e-324", "5e-324"}, Writing{5, 0, "5", "5"},
        Writing{-std::numeric_limits<double>::max(), 17, "-1.7976931348623157e308",
                "-1.7976931348623157e308"},
        Writing{infinity, 6, "inf", "inf"}, Writing{-infinity, 6, "-inf", "-inf"},
        Writing{std::nan(""), 6, "nan", "nan"}));

// Rounding to any number of digits is that of the standard's writer of a given precision.
TEST(Numbers, RoundsCorrectlyAtEveryPrecision) {
  const unsigned seed = std::random_device{}();
  std::mt19937_64 random(seed);
  for (int i = 0; i < 50'000; ++i) {
    // Half of the values lie next to a midpoint of short decimals.
    const double value = i % 2 ? std::uniform_real_distribution<double>(1, 10)(random)
                               : (static_cast<double>(random() % 100'000) * 10 + 5) / 1e5;
    const int digits = 1 + static_cast<int>(random() % 17);
    char text[64];
    char* end =
        std::to_chars(text, text + 40, value, std::chars_format::scientific, digits - 1).ptr;
    *end = '\0';
    EXPECT_EQ(sp_ConvertEngToReal(sp_ConvertRealToPlain(value, digits)),
              digits == 17 ? value : std::strtod(text, nullptr))
        << value << " at " << digits << " seed " << seed;
  }
}

// What is written reads back to the same digits: text -> value -> text at 6 and at 15 digits, and
// value -> text -> value at 17.
TEST(Numbers, WritingAndReadingAreInverse) {
  const unsigned seed = std::random_device{}();
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> exponent(-30, 30);
  for (int i = 0; i < 100'000; ++i) {
    const double value = std::pow(10, exponent(random)) * (random() % 2 ? 1 : -1);
    for (const int digits : {6, 12, 15}) {
      const YString eng = sp_ConvertRealToJSEng(value, digits, false);
      const double read = sp_ConvertEngToReal(eng);
      EXPECT_EQ(sp_ConvertRealToJSEng(read, digits, false), eng) << "seed " << seed;
      EXPECT_EQ(sp_ConvertEngToReal(sp_ConvertRealToPlain(value, digits)), read)
          << eng << " seed " << seed;
      EXPECT_NEAR(read / value, 1, 0.5 * std::pow(10, 1 - digits) + 5e-16) << "seed " << seed;
    }
    EXPECT_EQ(sp_ConvertEngToReal(sp_ConvertRealToJSEng(value, 17, false)), value)
        << "seed " << seed;
    EXPECT_EQ(sp_ConvertEngToReal(YString(value)), value) << "seed " << seed;
  }
}

TEST(Numbers, LocaleDoesNotMatter) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  bool hasComma = false;
  for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"})
    hasComma = hasComma || std::setlocale(LC_NUMERIC, locale);
  if (!hasComma)
    GTEST_SKIP() << "no locale with a decimal comma is installed";
  EXPECT_EQ(sp_ConvertEngToReal("1.5"), 1.5);
  EXPECT_EQ(sp_ConvertEngToReal("1.23456789012345678901"), 1.23456789012345678901);
  EXPECT_STREQ(sp_ConvertRealToJSEng(1.5, 6, false), "1.5");
  std::setlocale(LC_NUMERIC, before.c_str());
}

} // namespace
