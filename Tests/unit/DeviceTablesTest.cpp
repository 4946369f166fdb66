#include "Core/Analog/DeviceList.h"
#include "Core/Analog/SelectionTable.h"
#include "Core/Analog/TestTree.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<const char*>;

Texts textsOf(const Lines& lines) {
  return {lines.data(), static_cast<unsigned>(lines.size())};
}

std::string joined(const QStringList& texts) {
  return texts.join(QLatin1Char('|')).toStdString();
}

} // namespace

TEST(DeviceList, RangesAreHalfOpen) {
  const struct {
    const char* text;
    double low;
    double high;
  } cases[] = {
      {"", -1e100, 1e100},
      {"ALL", -1e100, 1e100},
      {" all ", -1e100, 1e100},
      {"10-20", 10, 20},
      {"10m-4.7k", 0.01, 4700},
      {"10-Inf", 10, 1e100},
      {" 1 - inf ", 1, 1e100},
      {"10", 10, 0},
      {"-5", 0, 5},
      {"-5-7", 0, 5},
      {"10-", 10, 0},
      {"some-thing", 0, 0},
      {"5-nan", 5, 0},
  };
  for (const auto& c : cases) {
    const ValueRange range = readRange(c.text);
    EXPECT_EQ(range.low, c.low) << c.text;
    EXPECT_EQ(range.high, c.high) << c.text;
  }
  EXPECT_TRUE(readRange("10-20").contains(10));
  EXPECT_FALSE(readRange("10-20").contains(20));
}

TEST(DeviceList, LineNumbersAreTheScripts) {
  const Lines lines = {"N1;10;60;5m;SO8", "*N2;10;60;5m", "",
                       "N3;10k;-60",      "N4",           "\xC3\xA9N5;1;2;3"};
  using Numbers = std::vector<int>;
  const ValueRange all;
  const ValueRange positive{0, 1e100};
  const struct {
    const char* marker;
    DeviceList::Ranges ranges;
    Numbers found;
  } cases[] = {
      {"*", {{all, all, all}}, {0, 2, 3, 4, 5}},
      {"*", {{positive, positive, positive}}, {0, 2, 4, 5}},
      {"", {{all, all, all}}, {0, 1, 3, 4, 5}},
      {"Nx", {{all, all, all}}, {1, 2, 5}},
      {"\xC3\xA9", {{all, all, all}}, {0, 1, 2, 3, 4}}, // a character, not its first byte
      {"\xC3\xBC", {{all, all, all}}, {0, 1, 2, 3, 4, 5}},
      {"*", {{{10, 10000}, all, all}}, {0}},
      {"*", {{{1, 10}, all, all}}, {5}},
      {"*", {{{10, 10001}, all, all}}, {0, 3}},
      {"*", {{{5, 1}, all, all}}, {}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(DeviceList(textsOf(lines), c.marker).within(c.ranges), c.found) << c.marker;
  EXPECT_EQ(joined(DeviceList(textsOf(lines), "").fields(0)), "N1|10|60|5m|SO8");
  const Lines longer = {"a;b;c;d;e;f"};
  EXPECT_EQ(joined(DeviceList(textsOf(longer), "").fields(0)), "a|b|c|d|e;f");
}

TEST(SelectionTable, OptionsAreWordsInAnyCase) {
  const struct {
    Lines words;
    bool numbers, header, exclusive;
    const char* highlight;
  } cases[] = {
      {{}, true, true, false, "none"},
      {{"NOROWNUMBERS", "noheader", "Exclusive"}, false, false, true, "none"},
      {{"highlight-red"}, true, true, false, "red"},
      {{"highlight-red", "highlight-blue"}, true, true, false, "blue"},
      {{"Highlight-red", "exclusive "}, true, true, false, "none"},
      {{"a-highlight-red"}, true, true, false, "t-red"}, // behind the tenth character
  };
  for (const auto& c : cases) {
    const TableOptions options(textsOf(c.words));
    EXPECT_EQ(options.hasRowNumbers, c.numbers);
    EXPECT_EQ(options.hasHeader, c.header);
    EXPECT_EQ(options.isExclusive, c.exclusive);
    EXPECT_EQ(options.highlight.toStdString(), c.highlight);
  }
}

TEST(SelectionTable, RowsAreAsLongAsTheLongest) {
  const Lines lines = {"Name;Note", "a;two\\nlines;;", ";", ""};
  const SelectionTable with(textsOf(lines), true);
  EXPECT_EQ(with.width(), 4);
  EXPECT_EQ(joined(with.header()), "Name|Note||");
  ASSERT_EQ(with.rows().size(), 3);
  EXPECT_EQ(joined(with.rows().at(0)), "a|two\nlines||");
  EXPECT_EQ(joined(with.rows().at(2)), "|||");
  const SelectionTable without(textsOf(lines), false);
  EXPECT_TRUE(without.header().isEmpty());
  EXPECT_EQ(without.rows().size(), 4);
  EXPECT_EQ(SelectionTable(textsOf({}), true).width(), 0);
  EXPECT_STREQ(tableKey(textsOf(lines)), "__;_a;two\\nlines;;_Name;Note");
}

TEST(TestTree, LevelsThatDifferInCaseAreOne) {
  const Lines lines = {
      "AC;Loop;Margin", "DC", "ac;LOOP;Bandwidth", "AC;Noise", "dc;Sweep", "", "x;"};
  const TestTree tree(textsOf(lines));
  std::vector<std::string> paths;
  for (int leaf : tree.leaves())
    paths.emplace_back(tree.path(leaf));
  const std::vector<std::string> expected = {
      "AC;Loop;Margin;", "AC;Loop;Bandwidth;", "AC;Noise;", "DC;Sweep;", ";", "x;;"};
  EXPECT_EQ(paths, expected);
}

TEST(TestTree, DeepLinesEndInOneLevel) {
  const std::string line(1000000, ';');
  const Lines lines = {line.c_str()};
  const TestTree tree(textsOf(lines));
  EXPECT_EQ(tree.nodes().size(), 100U);
  EXPECT_EQ(tree.path(99).length(), line.size() + 1);
}
