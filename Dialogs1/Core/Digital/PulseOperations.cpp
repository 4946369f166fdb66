#include "Core/Digital/PulseOperations.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double never = std::numeric_limits<double>::max();
constexpr double timeTolerance = 1e-13; // relative; times closer than this are the same
constexpr double mostPulses = 1e6;      // what a text edit can still hold

constexpr const char* noOutputTitle = "No Output Selected";
constexpr const char* noPulseOutput = "Select an output to apply the pulse to";
constexpr Refusal noWidth = {
    "Invalid Pulse Parameters",
    "Pulse width must be greater than zero and pulse period must be greater than pulse width"};

/// Merges events into the rows of a table, time by time.
class Merge {
public:
  Merge(const Timetable& table, PulseOperationAbstract& operation)
      : m_table(table), m_operation(operation), m_next(operation.firstTime()) {
    m_merged.outputs = table.outputs;
    m_merged.times.reserve(table.times.size());
    m_merged.states.reserve(table.states.size());
  }

  Timetable merged() {
    while (m_next < 0)
      m_next = m_operation.nextTime(m_next);
    for (std::size_t row = 0; row < m_table.rows(); ++row)
      mergeRow(row);
    addEventsBehind();
    return std::move(m_merged);
  }

private:
  void mergeRow(std::size_t row) {
    const double time = m_table.times[row];
    for (;;) {
      passLateEvents();
      if (m_next < never && std::fabs(m_next - time) < time * timeTolerance)
        m_next = time;
      if (!isDue(time)) {
        m_merged.append(time, m_table.row(row));
        m_operation.applyState(lastRow());
        return;
      }
      const bool isOnRow = m_next == time;
      // Between two rows the states of the earlier one are in force; before the first, its own.
      addEvent(m_table.row(isOnRow || row == 0 ? row : row - 1));
      if (isOnRow)
        return;
    }
  }

  /// What follows continues from the last row, so a train that is high there is high at its end.
  void addEventsBehind() {
    const std::vector<unsigned char> last(lastRow(), lastRow() + m_merged.outputs);
    passLateEvents();
    while (!m_operation.isFinished() && m_next < never) {
      addEvent(last.data());
      passLateEvents();
    }
  }

  void addEvent(const unsigned char* states) {
    m_merged.append(m_next, states);
    m_next = m_operation.nextTime(m_next);
    m_operation.applyState(lastRow());
  }

  /// An event that is not later than the last row falls on it: times ascend, whatever events do.
  void passLateEvents() {
    while (m_merged.rows() > 0 && isDue(m_merged.times.back())) {
      m_next = m_operation.nextTime(m_next);
      m_operation.applyState(lastRow());
    }
  }

  /// A row may stand at the largest real, which is no event all the same.
  bool isDue(double time) const { return m_next <= time && m_next < never; }
  unsigned char* lastRow() { return m_merged.row(m_merged.rows() - 1); }

  const Timetable& m_table;
  PulseOperationAbstract& m_operation;
  Timetable m_merged;
  double m_next;
};

} // namespace

double PulseOperationRepetitive::nextTime(double t) {
  if (m_hasEnded) {
    m_phase = Phase::None;
    return never;
  }
  const bool wasHigh = m_phase == Phase::High;
  m_phase = wasHigh ? Phase::Low : Phase::High;
  const double next = t + (wasHigh ? m_train.period - m_train.width : m_train.width);
  m_hasEnded = next >= m_train.end || m_train.end - next <= m_train.end * timeTolerance;
  return m_hasEnded ? m_train.end : next;
}

void PulseOperationRepetitive::applyState(unsigned char* row) const {
  if (m_phase != Phase::None)
    row[m_train.output] = m_phase == Phase::High ? m_train.high : m_train.low;
}

PulseOperationDelay::PulseOperationDelay(const Timetable& table, int output, double delay)
    : m_times(table.times), m_delay(delay), m_output(output) {
  m_states.reserve(table.rows());
  for (std::size_t i = 0; i < table.rows(); ++i)
    m_states.push_back(table.row(i)[output]);
  while (m_index < m_times.size() && delay + m_times[m_index] < 0)
    ++m_index;
  if (!m_states.empty()) // all before 0: the last state holds
    m_state = m_states[std::min(m_index, m_states.size() - 1)];
}

double PulseOperationDelay::firstTime() {
  return isFinished() ? never : m_delay + m_times[m_index];
}

double PulseOperationDelay::nextTime(double) {
  if (isFinished())
    return never;
  m_state = m_states[m_index++];
  return m_delay + (isFinished() ? 0 : m_times[m_index]);
}

void PulseOperationDelay::applyState(unsigned char* row) const {
  row[m_output] = m_state;
}

void applyPulseOperation(Timetable* table, PulseOperationAbstract& operation) {
  ensureRow(table);
  *table = Merge(*table, operation).merged();
  compress(table);
}

PulseTrain singlePulse(double width, double at) {
  PulseTrain train;
  train.start = at;
  train.width = width;
  train.period = 2 * width;
  train.end = (at + width) * (1 + 1e-12); // the falling edge is well inside
  return train;
}

Refusal checkSinglePulse(double width) {
  return width > 0 ? Refusal() : noWidth;
}

Refusal checkPulseTrain(const PulseTrain& train) {
  const double span = train.end - train.start;
  const Refusal tooMany = {
      "Too Many Pulses",
      "This editor can handle up to 100000 pulses per output. This is a limitation of this GUI; "
      "the "
      "d_srce simulator device can handle larger sources if defined using a file "};
  if (train.output < 0)
    return {noOutputTitle, noPulseOutput};
  if (!(train.start < train.end))
    return {"End Before Start", "The pulse end is before or at the start"};
  if (!(train.period > 0))
    return {"Period Zero", "The pulse period must be greater than zero"};
  if (!(train.width < train.period))
    return {"Period Shorted than Width", "The pulse period must be longer than the pulse width"};
  // The quotient stands this way round, so that trains of more pulses than the text says pass, as
  // users are used to.
  if (train.period / span > 100000.0)
    return tooMany;
  if (!(train.width > 0))
    return noWidth;
  // What no editor could hold, or what time cannot tell apart: the latter would not even end.
  const double latest = std::max(std::fabs(train.start), std::fabs(train.end));
  if (!(span / train.period <= mostPulses) || train.period <= latest * timeTolerance)
    return tooMany;
  return {};
}

Refusal checkTimeShift(int output) {
  return output < 0 ? Refusal{noOutputTitle, "Select an output to time shift"} : Refusal();
}

Refusal checkClear(int output) {
  return output < 0 ? Refusal{noOutputTitle, noPulseOutput} : Refusal();
}
