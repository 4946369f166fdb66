#include "HostSupport/DigitalSource.h"
#include "HostSupport/Numbers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

/// Reads with arrays of exactly the size that is announced; the fault, or "" for none.
std::string read(const char* text, int columns, int points, std::string* shown = nullptr) {
  std::vector<unsigned char> states(static_cast<std::size_t>(columns * points));
  std::vector<double> times(static_cast<std::size_t>(points));
  YString error;
  const int status =
      DigitalSource::ReadSource(text, states.data(), times.data(), {columns, points}, &error);
  EXPECT_EQ(status != 0, !error.isEmpty());
  EXPECT_EQ(DigitalSource::ReadSource(text, nullptr, nullptr, {columns, points}, nullptr), status);
  if (shown)
    for (int i = 0; i < points; ++i) {
      *shown += sp_ConvertRealToJSEng(times[static_cast<std::size_t>(i)], 6).c_str();
      for (int k = 0; k < columns; ++k)
        *shown += ' ' + std::to_string(states[static_cast<std::size_t>(i * columns + k)]);
      *shown += ';';
    }
  return error.c_str();
}

} // namespace

TEST(DigitalSource, Reads) {
  const struct {
    const char* text;
    int columns;
    int points;
    const char* shown;
  } cases[] = {
      {"0\t\t0s\t1s\n1e-09\t\t1s\tUz\n", 2, 2, "0 0 1;1n 1 8;"},
      {"1n 1R", 1, 1, "1n 4;"},
      {"* clock\n0, 0s, 1z\r\n\r\n \t* end of the first part\r0.5u,,uU ,0R,\n\n", 2, 2,
       "0 0 7;500n 11 3;"},
      {"\t 3Meg 0u", 1, 1, "3Meg 9;"},
      {"-0 1u", 1, 1, "0 10;"},
      {"1\n2\n", 0, 2, "1;2;"},
      {"* only\n* comments", 0, 0, ""},
      {"", 0, 0, ""},
      {nullptr, 0, 0, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text ? c.text : "null");
    EXPECT_EQ(DigitalSource::GetNumColumns(c.text), c.columns);
    EXPECT_EQ(DigitalSource::GetNumPoints(c.text), c.points);
    std::string shown;
    EXPECT_EQ(read(c.text, c.columns, c.points, &shown), "");
    EXPECT_EQ(shown, c.shown);
  }
}

TEST(DigitalSource, AFaultNamesItsPlaceAndWhatWasExpected) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"0 0s 1s\n1 1s", "line 2, column 5: expected the state of output 2 of 2"},
      {"0 0s 1s\n\n*\n1 0s 1s ,0s",
       "line 4, column 10: expected the end of the line after 2 outputs"},
      {"0 0s 1s\r\n1 0s 2s", "line 2, column 6: expected the value 0, 1 or U of output 2"},
      {"0 0s 1s\r1 0x 1s", "line 2, column 4: expected the strength s, r, z or u of output 1"},
      {"0 0s 1s\n1 0 1s", "line 2, column 4: expected the strength s, r, z or u of output 1"},
      {"0 0ss 1s\n1 0s 1s",
       "line 1, column 5: expected a blank, a tab or a comma behind the state of output 1"},
      {"0 0s 1s\n\tclock 0s 1s", "line 2, column 2: expected a time, such as 12.5n or 1.25e-8"},
      {"0 0s 1s\n1n5 0s 1s", "line 2, column 1: expected a time, such as 12.5n or 1.25e-8"},
      {"0 0s 1s\nnan 0s 1s", "line 2, column 1: expected a time, such as 12.5n or 1.25e-8"},
      {"0 0s 1s\n1e999 0s 1s", "line 2, column 1: expected a finite time from 0 on"},
      {"-1n 0s 1s\n0 0s 1s", "line 1, column 1: expected a finite time from 0 on"},
      {"2n 0s 1s\n2e-9 0s 1s", "line 2, column 1: expected a time later than 2n"},
      {"2n 0s 1s\n1n 0s 1s", "line 2, column 1: expected a time later than 2n"},
      {"0 0s 1s\n\n", "line 3, column 1: expected 2 times, not 1"},
      {"0 0s 1s", "line 1, column 8: expected 2 times, not 1"},
      {"0 0s 1s\n1 0s 1s\n 2 0s 1s", "line 3, column 2: expected no more than 2 times"},
      {"0 0s 1s\n1 \xC2\xB5\xE2\x82\xAC 1s",
       "line 2, column 3: expected the value 0, 1 or U of output 1"},
      {"0 0s 1s\n1\xC2\xB5s \xE2\x82\xAC",
       "line 2, column 5: expected the value 0, 1 or U of output 1"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(read(c.text, 2, 2), c.error) << c.text;
  EXPECT_EQ(read("0 0s", 0, 1), "line 1, column 3: expected the end of the line after 0 outputs");
  YString error;
  EXPECT_NE(DigitalSource::ReadSource("0 0s", nullptr, nullptr, {-1, -1}, &error), 0);
}

TEST(DigitalSource, WhatIsWrittenOfAStateReadsBack) {
  for (int code = 0; code < digitalStateCount; ++code) {
    const Digital_t state = digitalState(static_cast<unsigned char>(code));
    ASSERT_EQ(digitalCode(state), code);
    std::string shown;
    EXPECT_EQ(
        read((std::string("0 ") + DigitalSource::GetStateString(state)).c_str(), 1, 1, &shown), "");
    EXPECT_EQ(shown, "0 " + std::to_string(code) + ";");
  }
  EXPECT_STREQ(DigitalSource::GetStateString({-1, 4}), "Uu");
  EXPECT_STREQ(DigitalSource::GetStateString({3, -1}), "Uu");
}

// Under a sanitizer this also shows that nothing is read or written outside.
TEST(DigitalSource, AnyBytesAreReadOrRefused) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const std::string pieces[] = {"0",  "1",  "0s", "1R", "Uz",   "u",   "\n", "\r",   "\r\n",
                                "\t", " ",  ",",  "*",  "e",    "e-9", "n",  "\xC2", "\xB5",
                                "\v", "\f", "-1", "1n", "2.5u", ".",   "+",  "%",    "2 0s\n"};
  int accepted = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (unsigned i = random() % 12; i > 0; --i)
      if (random() % 20 == 0)
        text += static_cast<char>(1 + random() % 255);
      else
        text += pieces[random() % std::size(pieces)];
    // On the heap, so that a byte read behind the end is noticed.
    std::vector<char> exact(text.c_str(), text.c_str() + text.size() + 1);
    const int columns = DigitalSource::GetNumColumns(exact.data());
    const int points = DigitalSource::GetNumPoints(exact.data());
    ASSERT_LE(std::size_t(points) + std::size_t(columns), text.size());
    const std::string error = read(exact.data(), columns, points);
    accepted += error.empty() && points > 0;
    ASSERT_EQ(read(exact.data(), columns + 1, points).empty(), points == 0);
    ASSERT_NE(read(exact.data(), columns, points + 1), "");
  }
  EXPECT_GT(accepted, 100);
}
