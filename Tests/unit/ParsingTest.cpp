#include "HostSupport/Parsing.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

Fields fieldsOf(const YArray<YString>& array) {
  Fields fields;
  for (const YString& field : array)
    fields.emplace_back(field);
  return fields;
}

Fields split(const char* text, int maxFields) {
  YArray<YString> out;
  out.append("left over");
  const int count = sp_SplitLine(text, ';', &out, maxFields);
  EXPECT_EQ(count, out.count());
  return fieldsOf(out);
}

Fields scan(const char* text, const char* delimiters, int maxFields) {
  YArray<YString> out;
  out.append("left over");
  const int count = sp_ScanLine(text, delimiters, &out, maxFields);
  EXPECT_EQ(count, out.count());
  return fieldsOf(out);
}

TEST(Parsing, SplitKeepsEmptyFields) {
  EXPECT_EQ(split("a;;b;", allFields), (Fields{"a", "", "b", ""}));
  EXPECT_EQ(split("a;b;c;d", 2), (Fields{"a", "b;c;d"}));
  EXPECT_EQ(split("a;b", 2), (Fields{"a", "b"}));
  EXPECT_EQ(split("a;b;c", 0), (Fields{"a", "b", "c"}));
  EXPECT_EQ(split("a;b", 1), (Fields{"a;b"}));
  EXPECT_EQ(split("", allFields), (Fields{""}));
  EXPECT_EQ(split(nullptr, allFields), (Fields{""}));
}

TEST(Parsing, ScanDropsEmptyFields) {
  EXPECT_EQ(scan("  a,b\t(c) ", " \t\n\r,()", allFields), (Fields{"a", "b", "c"}));
  EXPECT_EQ(scan("a  b c ", " ", 2), (Fields{"a", "b c"}));
  EXPECT_EQ(scan("a b", nullptr, allFields), (Fields{"a b"}));
  EXPECT_EQ(scan(" \n", " \n", allFields), Fields{});
  EXPECT_EQ(scan(nullptr, " ", allFields), Fields{});
  EXPECT_EQ(scan("a\xc3\xa4 b", "\xff ", allFields), (Fields{"a\xc3\xa4", "b"}));
}

TEST(Parsing, TokensOfACursor) {
  struct Case {
    const char* text;
    const char* extra;
    const char* stopAt;
    Fields tokens;
    const char* rest;
  };
  const Case cases[] = {{" a  bc ", nullptr, nullptr, {"a", "bc"}, ""},
                        {"a=b (c)", "=()", nullptr, {"a", "=", "b", "(", "c", ")"}, ""},
                        {"a b ; c", nullptr, ";", {"a", "b"}, "; c"},
                        {"a b;c", nullptr, ";", {"a", "b"}, ";c"},
                        {"", nullptr, nullptr, {}, ""},
                        {"a b", nullptr, " ", {"a"}, " b"}};
  for (const Case& line : cases) {
    const char* cursor = line.text;
    Fields tokens;
    YString token;
    while (sp_GetToken(&cursor, &token, " ", line.extra, line.stopAt, false))
      tokens.emplace_back(token);
    EXPECT_EQ(tokens, line.tokens) << line.text;
    EXPECT_STREQ(cursor, line.rest);
    EXPECT_TRUE(token.isEmpty());
  }
}

std::string print(const char* format, PrintfArg a = {}, PrintfArg b = {}, PrintfArg c = {},
                  PrintfArg d = {}) {
  char buffer[100];
  std::memset(buffer, '#', sizeof buffer);
  EXPECT_TRUE(sp_sprintf(buffer, sizeof buffer, format, a, b, c, d)) << format;
  return buffer;
}

// The C library's own printing is the measure where both know the value's kind.
TEST(Printf, PrintsAsTheStandardDoes) {
  char expected[100];
  for (const char* format :
       {"%d", "%5d|", "%-5d|", "%05d", "%+d", "% d", "%.3d", "%8.3d", "%08.3d"})
    for (const int value : {0, 42, -42, INT_MIN}) {
      std::snprintf(expected, sizeof expected, format, value);
      EXPECT_EQ(print(format, value), expected) << format;
    }
  for (const char* format : {"%x", "%X", "%#x", "%#010x", "%u"}) {
    std::snprintf(expected, sizeof expected, format, 48879u);
    EXPECT_EQ(print(format, 48879u), expected) << format;
  }
  for (const char* format :
       {"%f", "%.2f", "%e", "%g", "%G", "%.3g", "%10.2f|", "%-10.1e|", "%010.2f", "%+.0f", "%.15g"})
    for (const double value : {0.0, 1.5, -1.25e-7, 1e20, HUGE_VAL}) {
      std::snprintf(expected, sizeof expected, format, value);
      EXPECT_EQ(print(format, value), expected) << format << value;
    }
  for (const char* format : {"%s", "%8s|", "%-8s|", "%.2s", "%%%s"}) {
    std::snprintf(expected, sizeof expected, format, "text");
    EXPECT_EQ(print(format, "text"), expected) << format;
  }
}

// A value has the bits of its own type, unless the format says otherwise.
TEST(Printf, BitsOfNegativeNumbers) {
  char expected[100];
  for (const char* format : {"%x", "%X", "%o", "%#o", "%u", "%#x", "%012x", "%hhx", "%hx", "%hhu"})
    for (const int value : {-1, -2, INT_MIN, 70000, 0}) {
      std::snprintf(expected, sizeof expected, format, value);
      EXPECT_EQ(print(format, value), expected) << format << value;
    }
  for (const char* format : {"%hd", "%hhd", "%.0o", "%#.3o", "%#5o|"}) {
    std::snprintf(expected, sizeof expected, format, 40000);
    EXPECT_EQ(print(format, 40000), expected) << format;
  }
  EXPECT_EQ(print("%llx %lld %jx %zx", -1, -1, -2, -1),
            "ffffffffffffffff -1 fffffffffffffffe ffffffffffffffff");
  EXPECT_EQ(print("%x %u", std::int64_t{-1}, std::int64_t{-1}),
            "ffffffffffffffff 18446744073709551615");
  EXPECT_EQ(print("%x %lx %u", -1L, -1L, -1LL).substr(0, 8), "ffffffff");
  EXPECT_EQ(print("%u %s %g %d", std::size_t(-1), std::size_t(-1), ~0ULL, ~0U),
            "18446744073709551615 18446744073709551615 1.84467e+19 4294967295");
}

TEST(Printf, ConvertsOtherKindsAndMissingValues) {
  EXPECT_EQ(print("%d", 2.9), "2");
  EXPECT_EQ(print("%d", 1e300), "9223372036854775807");
  EXPECT_EQ(print("%g", 3), "3");
  EXPECT_EQ(print("%g", "4.7k"), "4700");
  EXPECT_EQ(print("%s", 0.1), "0.1");
  EXPECT_EQ(print("%c%c", 65, "bc"), "Ab");
  EXPECT_EQ(print("%ld %lld %zu", 1, 2, 3), "1 2 3");
  EXPECT_EQ(print("%s%s%s%s[%s]", 1, 2, 3, 4), "1234[]");
  EXPECT_EQ(print("[%d]"), "[]");
  EXPECT_EQ(print("100% %q %"), "100% %q %");
  EXPECT_EQ(print(nullptr), "");
  EXPECT_EQ(print("%s", static_cast<const char*>(nullptr)), "");
}

TEST(Printf, CutsToTheBuffer) {
  char buffer[8];
  EXPECT_FALSE(sp_sprintf(buffer, sizeof buffer, "12345678"));
  EXPECT_STREQ(buffer, "1234567");
  EXPECT_TRUE(sp_sprintf(buffer, sizeof buffer, "1234567"));
  EXPECT_FALSE(sp_sprintf(buffer, sizeof buffer, "%999999999999d", 5));
  EXPECT_STREQ(buffer, "       ");
  EXPECT_FALSE(sp_sprintf(buffer, sizeof buffer, "%.999999999999f", 5.0));
  EXPECT_STREQ(buffer, "5.00000");
  EXPECT_FALSE(sp_sprintf(buffer, sizeof buffer, "123456\u00e4")); // no half characters
  EXPECT_STREQ(buffer, "123456");
  EXPECT_FALSE(sp_sprintf(buffer, sizeof buffer, "1234\u00e4xx"));
  EXPECT_STREQ(buffer, "1234\u00e4x");
  EXPECT_FALSE(sp_sprintf(buffer, 1, "x"));
  EXPECT_STREQ(buffer, "");
  EXPECT_FALSE(sp_sprintf(buffer, 0, "x"));
  EXPECT_FALSE(sp_sprintf(nullptr, 10, "x"));
}

} // namespace
