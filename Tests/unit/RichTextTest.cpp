#include "Core/Generic/RichText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

} // namespace

TEST(RichText, DepthCountsAndLengthDoesNot) {
  const struct {
    std::string text;
    bool isTooDeep;
  } cases[] = {
      {"", false},
      {"<", false},
      {"a < b </ c <> d", false},
      {repeated("<table><tr><td>", 8), false},
      {repeated("<table><tr><td>", 9), true},
      {repeated("<TABLE border=1>", 9), true},
      {repeated("<table><tr><td>x</td></tr></table>", 100000), false},
      {repeated("</table>", 100) + repeated("<table>", 9), true},
      {repeated("<tablet>", 900), false},
      {repeated("<div>", 1000), false},
      {repeated("<div>", 1001), true},
      {repeated("<b><i>", 501), true},
      {repeated("<b>x</b>", 100000), false},
      {repeated("<p>x<br><li>x", 100000), false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(nestsTooDeep(c.text.c_str()), c.isTooDeep) << c.text.substr(0, 40);
  EXPECT_FALSE(nestsTooDeep(nullptr));
}

TEST(RichText, LongestWord) {
  const struct {
    const char* text;
    std::size_t length;
  } cases[] = {{nullptr, 0}, {"", 0}, {" \n", 0}, {"a bcd\nef", 3}, {" ab", 2}, {"abc\tde ", 3}};
  for (const auto& c : cases)
    EXPECT_EQ(longestWord(c.text), c.length) << (c.text ? c.text : "(null)");
}
