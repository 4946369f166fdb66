#include "Core/Digital/Timetable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

namespace {

constexpr std::size_t mostSnapshots = 5;

/// The same rows with another count of outputs; `fill` makes a new row from an old one.
template <class FillRow> void rebuildRows(Timetable* table, int outputs, FillRow fill) {
  Timetable rebuilt;
  rebuilt.outputs = outputs;
  rebuilt.states.resize(table->rows() * static_cast<std::size_t>(outputs));
  for (std::size_t i = 0; i < table->rows(); ++i)
    fill(table->row(i), rebuilt.row(i));
  rebuilt.times = std::move(table->times);
  *table = std::move(rebuilt);
}

double plotLevel(unsigned char code) {
  constexpr double levels[] = {0.0, 1.0, 0.5};
  constexpr double aboveAxis = 0.2; // else a zero would lie on the axis
  return levels[digitalState(code).value] + aboveAxis;
}

} // namespace

const StateChoice stateChoices[digitalStateCount] = {
    {"ZERO STRONG", 0},       {"ONE STRONG", 1},        {"ZERO RESISTIVE", 3},
    {"ONE RESISTIVE", 4},     {"ZERO HI-Z", 6},         {"ONE HI-Z", 7},
    {"UNKNOWN STRONG", 2},    {"UNKNOWN RESISTIVE", 5}, {"UNKNOWN HI-Z", 8},
    {"ZERO UNDETERMINED", 9}, {"ONE UNDETERMINED", 10}, {"UNKNOWN UNDETERMINED", 11},
};

void Timetable::append(double time, const unsigned char* rowStates) {
  times.push_back(time);
  states.insert(states.end(), rowStates, rowStates + width());
}

bool operator==(const Timetable& a, const Timetable& b) {
  return a.outputs == b.outputs && a.times == b.times && a.states == b.states;
}

bool readTable(const char* text, int outputs, Timetable* table, YString* error) {
  const Source_Table_Info_t info = {outputs, DigitalSource::GetNumPoints(text)};
  Timetable read;
  read.outputs = outputs;
  // A text shorter than its states would be is at fault somewhere: room for them is not made before
  // they are known to be there.
  const std::size_t rows = static_cast<std::size_t>(info.points);
  const std::size_t cells = rows * static_cast<std::size_t>(outputs);
  const bool canBeRead = cells <= (text ? std::strlen(text) : 0);
  if (canBeRead) {
    read.times.resize(rows);
    read.states.resize(cells);
  }
  if (DigitalSource::ReadSource(text, canBeRead ? read.states.data() : nullptr,
                                canBeRead ? read.times.data() : nullptr, info, error) != 0)
    return false;
  *table = std::move(read);
  return true;
}

YString writeTable(const Timetable& table) {
  constexpr int digits = 15;
  constexpr std::size_t timeCapacity = 32;
  constexpr std::size_t stateLength = 3; // the tab, value and strength
  const std::size_t outputs = static_cast<std::size_t>(table.outputs);
  std::string text(table.rows() * (timeCapacity + stateLength * outputs), '\0');
  char* out = text.data();
  const char* previous = nullptr; // line of the row before
  for (std::size_t i = 0; i < table.rows(); ++i) {
    char* const line = out;
    out = std::to_chars(out, out + timeCapacity, table.times[i], std::chars_format::general, digits)
              .ptr;
    *out++ = '\t';
    const auto length = out - line;
    if (previous && std::memcmp(previous, line, static_cast<std::size_t>(length)) == 0)
      out = const_cast<char*>(previous) + length;
    previous = out - length;
    const unsigned char* const states = table.row(i);
    for (std::size_t output = 0; output < outputs; ++output) {
      const char* const state = DigitalSource::GetStateString(digitalState(states[output]));
      *out++ = '\t';
      *out++ = state[0];
      *out++ = state[1];
    }
    *out++ = '\n';
  }
  return YString(text.data(), static_cast<std::size_t>(out - text.data()));
}

int longestTime(const QString& text) {
  int longest = 0;
  for (int line = 0; line < text.size();) {
    const int end = text.indexOf(QLatin1Char('\n'), line);
    const int next = end < 0 ? text.size() : end + 1;
    if (text.at(line) != QLatin1Char('*')) // no comment
      longest = std::max(longest, text.midRef(line, next - line).indexOf(QLatin1Char('\t')));
    line = next;
  }
  constexpr int longestNumber = 22; // one at 15 digits; what is longer is none
  return std::min(longest, longestNumber);
}

bool compress(Timetable* table) {
  const std::size_t width = static_cast<std::size_t>(table->outputs);
  const std::size_t rows = table->rows();
  std::size_t kept = std::min<std::size_t>(rows, 1);
  for (std::size_t i = kept; i < rows; ++i) {
    if (std::equal(table->row(i), table->row(i) + width, table->row(kept - 1)))
      continue;
    if (kept != i) {
      std::copy_n(table->row(i), width, table->row(kept));
      table->times[kept] = table->times[i];
    }
    ++kept;
  }
  if (kept == rows)
    return false;
  table->times.resize(kept);
  table->states.resize(kept * width);
  table->times.front() = 0;
  return true;
}

void ensureRow(Timetable* table) {
  if (table->rows() > 0)
    return;
  table->times.assign(1, 0.0);
  table->states.assign(static_cast<std::size_t>(table->outputs), 0);
}

void clearOutput(Timetable* table, int output, unsigned char state) {
  for (std::size_t i = 0; i < table->rows(); ++i)
    table->row(i)[output] = state;
}

void addOutput(Timetable* table) {
  ensureRow(table);
  const int outputs = table->outputs;
  rebuildRows(table, outputs + 1, [outputs](const unsigned char* from, unsigned char* to) {
    std::copy_n(from, outputs, to); // the new one is 0 already
  });
}

void cloneOutput(Timetable* table, int output) {
  const int outputs = table->outputs;
  rebuildRows(table, outputs + 1, [=](const unsigned char* from, unsigned char* to) {
    *std::copy_n(from, outputs, to) = from[output];
  });
}

void removeOutput(Timetable* table, int output) {
  const int outputs = table->outputs;
  rebuildRows(table, outputs - 1, [=](const unsigned char* from, unsigned char* to) {
    std::copy(from + output + 1, from + outputs, std::copy_n(from, output, to));
  });
}

void swapOutputs(Timetable* table, int a, int b) {
  for (std::size_t i = 0; i < table->rows(); ++i)
    std::swap(table->row(i)[a], table->row(i)[b]);
}

AxisEnd axisEnd(double lastTime) {
  constexpr AxisEnd roundEnds[] = {{10, 4}, {12, 5}, {15, 4}, {20, 4}, {25, 4}, {30, 5},
                                   {40, 3}, {50, 4}, {60, 5}, {80, 3}, {100, 4}};
  if (!(lastTime > 0))
    return {1.0, 4};
  const double scale = std::pow(10.0, 1 - std::floor(std::log10(lastTime)));
  const double wanted = std::floor(scale * lastTime + 0.99999);
  for (const AxisEnd& round : roundEnds)
    if (wanted <= round.end && std::isfinite(round.end / scale) && round.end / scale > 0)
      return {round.end / scale, round.divisions};
  return {lastTime, 4}; // at the limits of a double
}

void extendTo(Timetable* table, double end) {
  const std::size_t rows = table->rows();
  if (rows == 0 || !(table->times.back() < end))
    return;
  const std::size_t width = static_cast<std::size_t>(table->outputs);
  table->times.push_back(end);
  table->states.resize((rows + 1) * width);
  std::copy_n(table->row(rows - 1), width, table->row(rows));
}

Trace traceOf(const Timetable& table, int output) {
  constexpr double edge = 1e-12; // seconds; as good as upright
  Trace trace;
  trace.x.reserve(2 * table.rows());
  trace.y.reserve(2 * table.rows());
  for (std::size_t i = 0; i < table.rows(); ++i) {
    const double time = table.times[i];
    if (i > 0) {
      trace.x.push_back(time);
      trace.y.push_back(trace.y.back());
    }
    trace.x.push_back(i > 0 ? time + edge : time);
    trace.y.push_back(plotLevel(table.row(i)[output]));
  }
  return trace;
}

void TimetableHistory::push(TimetableSnapshot snapshot) {
  if (newest() && newest()->table == snapshot.table && newest()->names == snapshot.names)
    return;
  while (m_snapshots.size() >= mostSnapshots)
    m_snapshots.erase(m_snapshots.begin());
  m_snapshots.push_back(std::move(snapshot));
}

const TimetableSnapshot* TimetableHistory::newest() const {
  return m_snapshots.empty() ? nullptr : &m_snapshots.back();
}

const TimetableSnapshot* TimetableHistory::undo() {
  if (m_snapshots.size() < 2)
    return nullptr;
  m_snapshots.pop_back();
  return &m_snapshots.back();
}
