#include "Core/Digital/Timetable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

Timetable randomTable(std::mt19937& random, int outputs, unsigned mostRows, unsigned mostCode) {
  Timetable table;
  table.outputs = outputs;
  std::vector<unsigned char> row(static_cast<std::size_t>(outputs) + 1);
  double time = random() % 3 ? 0 : 0.25;
  for (unsigned i = random() % (mostRows + 1); i > 0; --i) {
    for (unsigned char& state : row)
      state = static_cast<unsigned char>(random() % (mostCode + 1));
    table.append(time, row.data());
    time += std::ldexp(1 + random() % 1000, -static_cast<int>(random() % 30));
  }
  return table;
}

using Column = std::vector<unsigned char>;

std::vector<Column> columnsOf(const Timetable& table) {
  std::vector<Column> columns(static_cast<std::size_t>(table.outputs));
  for (std::size_t i = 0; i < table.rows(); ++i)
    for (std::size_t k = 0; k < columns.size(); ++k)
      columns[k].push_back(table.row(i)[k]);
  return columns;
}

Timetable read(const char* text, int outputs) {
  Timetable table;
  YString error;
  EXPECT_TRUE(readTable(text, outputs, &table, &error)) << error.c_str();
  return table;
}

} // namespace

TEST(Timetable, WhatIsWrittenReadsBack) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 1000; ++round) {
    const Timetable table = randomTable(random, static_cast<int>(random() % 5), 20, 11);
    const YString text = writeTable(table);
    const Timetable again = read(text, table.outputs);
    EXPECT_EQ(again.states, table.states);
    for (std::size_t i = 0; i < table.rows(); ++i)
      EXPECT_NEAR(again.times[i], table.times[i], table.times[i] * 1e-14);
    EXPECT_EQ(writeTable(again), text);
  }
  EXPECT_STREQ(writeTable(read("-0 0s", 1)), "0\t\t0s\n");
}

TEST(Timetable, TimesAreWrittenAsPrintfDoes) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  std::vector<double> times = {0, 1, 100000, 1e14, 1e15, 1e16, 0.0001, 0.00001, 5e-324, 1.7e308};
  while (times.size() < 100000) {
    const std::uint64_t bits = random() >> 1; // no sign
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value))
      times.push_back(value);
    // Midpoints of numbers of 15 digits.
    times.push_back((double(random() % 1000000000000000) + 0.5) / 8 / (random() % 4 + 1));
  }
  std::sort(times.begin(), times.end());
  Timetable table;
  std::string wanted;
  std::string previous;
  for (double time : times) {
    char line[40];
    std::snprintf(line, sizeof line, "%.15g\t\n", time);
    if (line != previous)
      wanted += line;
    previous = line;
    table.append(time, nullptr);
  }
  EXPECT_TRUE(writeTable(table) == wanted.c_str());
}

TEST(Timetable, ARowWhoseTimeReadsAsThatOfTheNextGivesWay) {
  Timetable table;
  table.outputs = 1;
  const struct {
    double time;
    unsigned char state;
  } rows[] = {{0, 0}, {1, 1}, {1 + 1e-15, 2}, {1 + 2e-15, 3}, {1 + 1e-14, 4}, {10, 5}};
  for (const auto& row : rows)
    table.append(row.time, &row.state);
  EXPECT_STREQ(writeTable(table), "0\t\t0s\n1\t\t0r\n1.00000000000001\t\t1r\n10\t\tUr\n");
}

TEST(Timetable, AFaultLeavesTheTable) {
  Timetable table = read("0 0s 1s\n1 1s 0s", 2);
  const Timetable before = table;
  YString error;
  EXPECT_FALSE(readTable("0 0s 1s\n1 1s", 2, &table, &error));
  EXPECT_STREQ(error, "line 2, column 5: expected the state of output 2 of 2");
  EXPECT_TRUE(table == before);
  // More states than there is memory for are not even made room for.
  std::string text = "0 0s\n";
  for (int time = 1; time < 1000; ++time)
    text += std::to_string(time) + " 0s\n";
  EXPECT_FALSE(readTable(text.c_str(), 2000000000, &table, &error));
  EXPECT_STREQ(error, "line 1, column 5: expected the state of output 2 of 2000000000");
  EXPECT_TRUE(readTable(nullptr, 3, &table, &error));
  EXPECT_EQ(table.outputs, 3);
  EXPECT_EQ(table.rows(), 0u);
}

TEST(Timetable, CompressDropsRepeatedRows) {
  const struct {
    const char* before;
    bool isChanged;
    const char* after;
  } cases[] = {
      {"", false, ""},
      {"5 0s", false, "5\t\t0s\n"},
      {"5 0s\n6 1s", false, "5\t\t0s\n6\t\t1s\n"},
      {"5 0s\n6 0s", true, "0\t\t0s\n"},
      {"5 0s\n6 1s\n7 1s\n8 1s\n9 0s\n10 0s", true, "0\t\t0s\n6\t\t1s\n9\t\t0s\n"},
      {"0 0s\n1 0r", false, "0\t\t0s\n1\t\t0r\n"},
  };
  for (const auto& c : cases) {
    Timetable table = read(c.before, 1);
    EXPECT_EQ(compress(&table), c.isChanged) << c.before;
    EXPECT_STREQ(writeTable(table), c.after);
  }
}

TEST(Timetable, OutputsComeAndGo) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 300; ++round) {
    Timetable table = randomTable(random, 1, 5, 11);
    if (table.rows() == 0)
      table.append(0, reinterpret_cast<const unsigned char*>("\5"));
    std::vector<Column> model = columnsOf(table);
    const std::vector<double> times = table.times;
    for (int step = 0; step < 12; ++step) {
      const int any = model.empty() ? -1 : static_cast<int>(random() % model.size());
      const int other = model.empty() ? -1 : static_cast<int>(random() % model.size());
      switch (any < 0 ? 0 : random() % 5) {
      case 0:
        addOutput(&table);
        model.emplace_back(times.size(), 0);
        break;
      case 1:
        cloneOutput(&table, any);
        model.push_back(Column(model[std::size_t(any)]));
        break;
      case 2:
        removeOutput(&table, any);
        model.erase(model.begin() + any);
        break;
      case 3:
        swapOutputs(&table, any, other);
        std::swap(model[std::size_t(any)], model[std::size_t(other)]);
        break;
      default:
        clearOutput(&table, any, 7);
        model[std::size_t(any)].assign(times.size(), 7);
      }
      ASSERT_EQ(columnsOf(table), model);
      ASSERT_EQ(table.times, times);
    }
  }
  Timetable empty;
  addOutput(&empty);
  EXPECT_STREQ(writeTable(empty), "0\t\t0s\n");
  Timetable withoutRows = read("", 2);
  cloneOutput(&withoutRows, 1);
  EXPECT_STREQ(writeTable(withoutRows), "");
  addOutput(&withoutRows);
  EXPECT_STREQ(writeTable(withoutRows), "0\t\t0s\t0s\t0s\t0s\n");
}

TEST(Timetable, AxesEndAtARoundTime) {
  const struct {
    double last;
    double end;
    int divisions;
  } cases[] = {
      {3.2e-6, 4e-6, 3},   {1, 1, 4},
      {1e-9, 1e-9, 4},     {1.0000005, 1, 4},
      {1.00001, 1.2, 5},   {1.2, 1.2, 5},
      {1.21, 1.5, 4},      {1.6, 2, 4},
      {2.1, 2.5, 4},       {2.6, 3, 5},
      {3.01, 4, 3},        {4.2, 5, 4},
      {5.9, 6, 5},         {6.1, 8, 3},
      {8.1, 10, 4},        {9.9999, 10, 4},
      {99.99999, 100, 4},  {0, 1, 4},
      {-1, 1, 4},          {NAN, 1, 4},
      {1000, 1000, 4},     {1.7e308, 1.7e308, 4},
      {5e-324, 5e-324, 4},
  };
  for (const auto& c : cases) {
    const AxisEnd end = axisEnd(c.last);
    EXPECT_DOUBLE_EQ(end.end, c.end) << c.last;
    EXPECT_EQ(end.divisions, c.divisions) << c.last;
  }
  for (int exponent = -300; exponent < 300; ++exponent)
    for (double last = std::pow(10.0, exponent); last < std::pow(10.0, exponent + 1);
         last *= 1.37) {
      const double end = axisEnd(last).end;
      ASSERT_GE(end, last * (1 - 1e-6));
      ASSERT_LE(end, last * 1.35);
    }
}

TEST(Timetable, TracesHaveUprightEdgesAndRunToTheEnd) {
  Timetable table = read("0 0s 1s\n1 Uz 1r\n2 1u 0s", 2);
  extendTo(&table, 2.5);
  extendTo(&table, 2.5);
  ASSERT_EQ(table.rows(), 4u);
  const Trace trace = traceOf(table, 0);
  EXPECT_EQ(trace.x, (std::vector<double>{0, 1, 1 + 1e-12, 2, 2 + 1e-12, 2.5, 2.5 + 1e-12}));
  EXPECT_EQ(trace.y, (std::vector<double>{0.2, 0.2, 0.7, 0.7, 1.2, 1.2, 1.2}));
  EXPECT_EQ(traceOf(table, 1).y, (std::vector<double>{1.2, 1.2, 1.2, 1.2, 0.2, 0.2, 0.2}));
  Timetable none;
  none.outputs = 1;
  extendTo(&none, 1);
  EXPECT_TRUE(traceOf(none, 0).x.empty());
}

TEST(Timetable, FindsTheLongestTimeInFrontOfATab) {
  const struct {
    const char* text;
    int length;
  } cases[] = {{"", 0},
               {"0 0s\n1u 1s", 0},
               {"0\t\t0s\n1e-06\t\t1s\n2\t\t0s\n", 5},
               {"* a long comment\tis no time\n1u\t1s", 2},
               {"this is no number of any size\t1s", 22}};
  for (const auto& c : cases)
    EXPECT_EQ(longestTime(QString::fromUtf8(c.text)), c.length) << c.text;
}

TEST(TimetableHistory, GoesBackFourStepsAtMost) {
  TimetableHistory history;
  EXPECT_EQ(history.newest(), nullptr);
  EXPECT_EQ(history.undo(), nullptr);
  const auto snapshot = [](int number) {
    const unsigned char state = 1;
    TimetableSnapshot made;
    made.table.outputs = 1;
    made.table.append(number, &state);
    made.names = QStringList(QString::number(number));
    return made;
  };
  for (int number = 1; number <= 7; ++number)
    for (int i = 0; i < 2; ++i) // the second time it is no step
      history.push(snapshot(number));
  for (int number : {6, 5, 4, 3}) {
    const TimetableSnapshot* restored = history.undo();
    ASSERT_NE(restored, nullptr);
    EXPECT_EQ(restored->names, snapshot(number).names);
    EXPECT_EQ(restored, history.newest());
  }
  EXPECT_EQ(history.undo(), nullptr);
  EXPECT_EQ(history.newest()->names, snapshot(3).names);

  // Each part of a snapshot makes a step.
  TimetableSnapshot step = snapshot(3);
  const auto isStep = [&] {
    history.push(step);
    return history.undo() != nullptr;
  };
  EXPECT_FALSE(isStep());
  step.table.states[0] = 2;
  EXPECT_TRUE(isStep());
  step = snapshot(3);
  step.table.times[0] = 3.5;
  EXPECT_TRUE(isStep());
  step = snapshot(3);
  step.names[0] = QStringLiteral("other");
  EXPECT_TRUE(isStep());
  step = {};
  TimetableHistory empty;
  empty.push(step);
  step.table.outputs = 2;
  empty.push(step);
  EXPECT_NE(empty.undo(), nullptr);
}

TEST(StateChoices, OfferEachStateUnderItsName) {
  const char* const values[] = {"ZERO ", "ONE ", "UNKNOWN "};
  const char* const strengths[] = {"STRONG", "RESISTIVE", "HI-Z", "UNDETERMINED"};
  std::vector<bool> isOffered(digitalStateCount);
  for (const StateChoice& choice : stateChoices) {
    isOffered.at(choice.code) = true;
    EXPECT_EQ(choice.name, std::string(values[choice.code % 3]) + strengths[choice.code / 3]);
  }
  EXPECT_EQ(isOffered, std::vector<bool>(digitalStateCount, true));
}
