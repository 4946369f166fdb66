#include "Core/Digital/PulseOperations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double never = std::numeric_limits<double>::max();

// What an operation does to one output, said as what holds from when on. `asBefore` is what the
// table had.
constexpr int asBefore = -1;
struct Change {
  double time;
  int state;
};
struct Signal {
  int before = asBefore; // the first change
  std::vector<Change> changes;
};

Signal signalOf(const PulseTrain& train) {
  Signal signal;
  for (int edge = 0;; ++edge) {
    const double time = train.start + (edge / 2) * train.period + (edge % 2) * train.width;
    if (time >= train.end * (1 - 1e-13))
      break;
    signal.changes.push_back({time, edge % 2 ? train.low : train.high});
  }
  signal.changes.push_back({train.end, asBefore});
  return signal;
}

Signal delayedSignal(const Timetable& table, int output, double delay) {
  Signal signal;
  for (std::size_t i = 0; i < table.rows(); ++i) {
    const int state = table.row(i)[output];
    if (delay + table.times[i] >= 0)
      signal.changes.push_back({delay + table.times[i], state});
    if (signal.changes.size() <= 1)
      signal.before = state;
  }
  return signal;
}

bool coincides(double event, double row) {
  return event == row || std::fabs(event - row) < row * 1e-13;
}

/// The slow and obvious way: every time by itself, every state looked up.
Timetable merged(Timetable table, int output, Signal signal) {
  if (table.rows() == 0) {
    table.times = {0};
    table.states.assign(static_cast<std::size_t>(table.outputs), 0);
  }
  std::vector<double> times = table.times;
  for (Change& change : signal.changes) {
    for (double row : table.times)
      if (coincides(change.time, row))
        change.time = row;
    if (change.time >= 0)
      times.push_back(change.time);
  }
  std::sort(times.begin(), times.end());
  times.erase(std::unique(times.begin(), times.end()), times.end());

  Timetable result;
  result.outputs = table.outputs;
  unsigned char atLastRow = 0;
  for (double time : times) {
    std::size_t row = 0;
    while (row + 1 < table.rows() && table.times[row + 1] <= time)
      ++row;
    std::vector<unsigned char> states(table.row(row), table.row(row) + table.outputs);
    int state = signal.before;
    for (const Change& change : signal.changes)
      if (change.time <= time)
        state = change.state;
    unsigned char& own = states[static_cast<std::size_t>(output)];
    if (state != asBefore)
      own = static_cast<unsigned char>(state);
    else if (time > table.times.back())
      own = atLastRow;
    if (time == table.times.back())
      atLastRow = own;
    result.append(time, states.data());
  }

  Timetable kept;
  kept.outputs = table.outputs;
  for (std::size_t i = 0; i < result.rows(); ++i)
    if (i == 0 || !std::equal(result.row(i), result.row(i) + result.outputs, result.row(i - 1)))
      kept.append(result.times[i], result.row(i));
  if (kept.rows() != result.rows())
    kept.times[0] = 0;
  return kept;
}

std::string shown(const Timetable& table) {
  return writeTable(table).c_str();
}

/// Times on a grid, so that many of them meet, some of them by a hair's breadth only.
class RandomTimes {
public:
  explicit RandomTimes(unsigned seed) : m_random(seed) {}
  int upTo(int most) { return std::uniform_int_distribution<>(0, most)(m_random); }
  double grid(int most) { return upTo(most) / 8.0; }
  double nearGrid(int most) { return grid(most) * (1 + (upTo(2) - 1) * 2.9e-14); }

  Timetable table() {
    Timetable made;
    made.outputs = 1 + upTo(3);
    std::vector<double> times;
    for (int i = upTo(8); i > 0; --i)
      times.push_back(nearGrid(40));
    std::sort(times.begin(), times.end());
    for (double time : times)
      if (made.rows() == 0 || time > made.times.back() * (1 + 1e-12)) {
        unsigned char states[4];
        std::generate(states, states + 4, [this] { return upTo(2); });
        made.append(time, states);
      }
    return made;
  }

private:
  std::mt19937 m_random;
};

void expectSame(const Timetable& found, const Timetable& wanted) {
  ASSERT_EQ(found.states, wanted.states) << shown(found) << "instead of\n" << shown(wanted);
  for (std::size_t i = 0; i < wanted.rows(); ++i) {
    ASSERT_NEAR(found.times[i], wanted.times[i], wanted.times[i] * 1e-12);
    ASSERT_TRUE(i == 0 || found.times[i] > found.times[i - 1]);
  }
}

Timetable parsed(const char* text, int outputs) {
  Timetable table;
  YString error;
  EXPECT_TRUE(readTable(text, outputs, &table, &error)) << error.c_str();
  return table;
}

} // namespace

TEST(PulseOperations, TrainsAgreeWithTheSlowAndObviousWay) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  RandomTimes random(seed);
  for (int round = 0; round < 10000; ++round) {
    Timetable table = random.table();
    PulseTrain train;
    train.period = 0.25 + random.grid(20);
    train.width = 0.125 * (1 + random.upTo(static_cast<int>(train.period * 8) - 2));
    train.start = random.upTo(9) == 0 ? -random.grid(20) : random.nearGrid(60);
    train.end = train.start + 0.125 + random.grid(60);
    train.high = static_cast<unsigned char>(random.upTo(2));
    train.low = static_cast<unsigned char>(random.upTo(2));
    train.output = random.upTo(table.outputs - 1);
    ASSERT_FALSE(checkPulseTrain(train));
    if (random.upTo(4) == 0)
      train.end = train.start + train.period * (1 + random.upTo(5));
    const Timetable wanted = merged(table, train.output, signalOf(train));
    const std::string before = shown(table);
    PulseOperationRepetitive operation(train);
    applyPulseOperation(&table, operation);
    SCOPED_TRACE(before + "train " + std::to_string(train.start) + ' ' +
                 std::to_string(train.width) + ' ' + std::to_string(train.period) + ' ' +
                 std::to_string(train.end) + " on " + std::to_string(train.output));
    expectSame(table, wanted);
    if (HasFatalFailure())
      return;
  }
}

TEST(PulseOperations, ShiftsAgreeWithTheSlowAndObviousWay) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  RandomTimes random(seed);
  for (int round = 0; round < 10000; ++round) {
    Timetable table = random.table();
    const int output = random.upTo(table.outputs - 1);
    const double delay = random.nearGrid(40) - random.grid(40);
    Signal signal = delayedSignal(table, output, delay);
    if (table.rows() == 0)
      signal.before = 0;
    const Timetable wanted = merged(table, output, signal);
    const std::string before = shown(table);
    PulseOperationDelay operation(table, output, delay);
    applyPulseOperation(&table, operation);
    SCOPED_TRACE(before + "shifted by " + std::to_string(delay) + " on " + std::to_string(output));
    expectSame(table, wanted);
    if (HasFatalFailure())
      return;
  }
}

TEST(PulseOperations, PulsesOnTables) {
  const struct {
    const char* name;
    const char* before;
    double width;
    double at;
    const char* after;
  } cases[] = {
      {"behind the table", "0 0s 1s", 1, 2, "0\t\t0s\t1s\n2\t\t1s\t1s\n3\t\t0s\t1s\n"},
      {"within the table, over a row of the other output", "0 0s 1s\n2 0s 0s\n5 1s 1s", 2, 1,
       "0\t\t0s\t1s\n1\t\t1s\t1s\n2\t\t1s\t0s\n3\t\t0s\t0s\n5\t\t1s\t1s\n"},
      {"on rows that all but coincide", "0 0s 1s\n1.00000000000009 0s 0s\n2 0s 1s\n9 1s 1s", 1, 1,
       "0\t\t0s\t1s\n1.00000000000009\t\t1s\t0s\n2\t\t0s\t1s\n9\t\t1s\t1s\n"},
      {"next to a row that does not", "0 0s 1s\n1.00000000000011 0s 0s\n9 1s 1s", 1, 1,
       "0\t\t0s\t1s\n1\t\t1s\t1s\n1.00000000000011\t\t1s\t0s\n2\t\t0s\t0s\n9\t\t1s\t1s\n"},
      {"before the first row", "5 0s 1s\n6 0s 0s", 1, 2, "2\t\t1s\t1s\n3\t\t0s\t1s\n6\t\t0s\t0s\n"},
      {"from before 0", "0 0s 1s\n6 0s 0s", 1, -0.5, "0\t\t1s\t1s\n0.5\t\t0s\t1s\n6\t\t0s\t0s\n"},
      {"long before 0", "0 0s 1s\n6 0s 0s", 1, -5, "0\t\t0s\t1s\n6\t\t0s\t0s\n"},
      {"at 0, ended by the level of the last row", "0 0s 1s", 1, 0,
       "0\t\t1s\t1s\n1\t\t0s\t1s\n1.000000000001\t\t1s\t1s\n"},
      {"on no rows", "", 1, 2, "0\t\t0s\t0s\n2\t\t1s\t0s\n3\t\t0s\t0s\n"},
  };
  for (const auto& c : cases) {
    Timetable table = parsed(c.before, 2);
    PulseTrain train = singlePulse(c.width, c.at);
    train.output = 0;
    EXPECT_FALSE(checkPulseTrain(train));
    PulseOperationRepetitive operation(train);
    applyPulseOperation(&table, operation);
    // The first row of what was compressed is at 0.
    const std::string wanted = c.after[0] == '2' ? "0" + std::string(c.after + 1) : c.after;
    EXPECT_EQ(shown(table), wanted) << c.name;
  }
}

TEST(PulseOperations, Shifts) {
  const struct {
    const char* before;
    double delay;
    const char* after;
  } cases[] = {
      {"0 0s 1s\n1 1s 1s\n2 0s 0s", 0.5,
       "0\t\t0s\t1s\n1.5\t\t1s\t1s\n2\t\t1s\t0s\n2.5\t\t0s\t0s\n"},
      {"0 0s 1s\n2 1s 1s\n3 Us 0s", -1, "0\t\t1s\t1s\n2\t\tUs\t1s\n3\t\tUs\t0s\n"},
      {"0 0s 1s\n2 1s 1s\n3 Us 0s", -9, "0\t\tUs\t1s\n3\t\tUs\t0s\n"},
      {"5 0s 1s\n5.25 1s 0s", -0.5, "0\t\t0s\t1s\n4.75\t\t1s\t1s\n5.25\t\t1s\t0s\n"},
      {"0 0s 1s\n1 1s 0s", 1e308, "0\t\t0s\t1s\n1\t\t0s\t0s\n1e+308\t\t1s\t0s\n"},
      {"0 0s 1s\n1e308 1s 0s", 1.5e308, "0\t\t0s\t1s\n1e+308\t\t0s\t0s\n"},
      {"0 0s 1s\n1.7976931348623157e308 1s 0s", 1,
       "0\t\t0s\t1s\n1.79769313486232e+308\t\t0s\t0s\n"},
      {"0 0s 1s\n1 1s 0s", NAN, "0\t\t0s\t1s\n1\t\t0s\t0s\n"},
  };
  for (const auto& c : cases) {
    Timetable table = parsed(c.before, 2);
    PulseOperationDelay operation(table, 0, c.delay);
    applyPulseOperation(&table, operation);
    EXPECT_EQ(shown(table), c.after) << c.before << " by " << c.delay;
  }
}

TEST(PulseOperations, EventsOfATrain) {
  const struct {
    const char* name;
    double start, width, period, end;
    std::vector<double> times;
    const char* states; // high, low, none behind each event
  } cases[] = {
      {"ends low", 1, 1, 3, 5.5, {1, 2, 4, 5, 5.5}, "hlhl-"},
      {"ends high", 1, 1, 3, 4.5, {1, 2, 4, 4.5}, "hlh-"},
      {"an edge at the end", 1, 1, 3, 5 * (1 + 5e-14), {1, 2, 4, 5 * (1 + 5e-14)}, "hlh-"},
      {"an edge just before", 1, 1, 3, 5 * (1 + 2e-13), {1, 2, 4, 5, 5 * (1 + 2e-13)}, "hlhl-"},
  };
  for (const auto& c : cases) {
    PulseTrain train;
    train.start = c.start;
    train.width = c.width;
    train.period = c.period;
    train.end = c.end;
    train.high = 'h';
    train.low = 'l';
    train.output = 1;
    PulseOperationRepetitive operation(train);
    std::vector<double> times;
    std::string states;
    for (double t = operation.firstTime(); t < never;) {
      EXPECT_FALSE(operation.isFinished()) << c.name;
      times.push_back(t);
      t = operation.nextTime(t);
      unsigned char row[] = {'0', '-', '2'};
      operation.applyState(row);
      EXPECT_EQ(row[0], '0');
      EXPECT_EQ(row[2], '2');
      states += static_cast<char>(row[1]);
    }
    EXPECT_TRUE(operation.isFinished()) << c.name;
    EXPECT_EQ(times, c.times) << c.name;
    EXPECT_EQ(states, c.states) << c.name;
  }
}

TEST(PulseOperations, RefusalsInTheirOrder) {
  const struct {
    PulseTrain train;
    const char* title; // null: none
  } cases[] = {
      {{5, 9, -1, 5, 1, 0, -1}, "No Output Selected"},
      {{5, 9, -1, 5, 1, 0, 0}, "End Before Start"},
      {{0, 9, 0, 5, 1, 0, 0}, "Period Zero"},
      {{0, 2, 2, 5, 1, 0, 0}, "Period Shorted than Width"},
      {{0, 2, 500001, 5, 1, 0, 0}, "Too Many Pulses"},
      {{0, 2, 500000, 5, 1, 0, 0}, nullptr},
      {{0, 1e-6, 5e-6, 1, 1, 0, 0}, nullptr}, // 200,000 pulses
      {{0, 1e-9, 2e-9, 1, 1, 0, 0}, "Too Many Pulses"},
      {{0, 1, 2, 1e308, 1, 0, 0}, "Too Many Pulses"},
      {{1, 1e-16, 2e-16, 1 + 1e-12, 1, 0, 0}, "Too Many Pulses"},
      {{0, 0, 2, 5, 1, 0, 0}, "Invalid Pulse Parameters"},
      {{0, -1, 2, 5, 1, 0, 0}, "Invalid Pulse Parameters"},
      {{NAN, 1, 2, 5, 1, 0, 0}, "End Before Start"},
      {{0, 1, NAN, 5, 1, 0, 0}, "Period Zero"},
      {{0, NAN, 2, 5, 1, 0, 0}, "Period Shorted than Width"},
  };
  for (const auto& c : cases) {
    const Refusal refusal = checkPulseTrain(c.train);
    EXPECT_STREQ(refusal.title, c.title);
    EXPECT_EQ(bool(refusal), c.title != nullptr);
  }
  for (double width : {0.0, -1.0, double(NAN)})
    EXPECT_STREQ(checkSinglePulse(width).title, "Invalid Pulse Parameters");
  EXPECT_FALSE(checkSinglePulse(1e-12));
}
