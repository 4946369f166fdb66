#pragma once

#include "Core/Digital/Timetable.h"

/// Changes of one output over time, to be merged into a timetable.
class PulseOperationAbstract {
public:
  virtual ~PulseOperationAbstract() = default;
  /// Time of the first event, which is still to come.
  virtual double firstTime() = 0;
  /// Passes the event at `t`, so that its state is the current one. The time of the next event, or
  /// the largest real where there is none.
  virtual double nextTime(double t) = 0;
  /// Writes the current state into a row, if there is one.
  virtual void applyState(unsigned char* row) const = 0;
  virtual bool isFinished() const = 0;
};

/// A train of pulses on one output.
struct PulseTrain {
  double start = 0;
  double width = 0; ///< of the high state
  double period = 0;
  double end = 0;
  unsigned char high = 1;
  unsigned char low = 0;
  int output = -1; ///< none
};

class PulseOperationRepetitive : public PulseOperationAbstract {
public:
  explicit PulseOperationRepetitive(const PulseTrain& train) : m_train(train) {}
  double firstTime() override { return m_train.start; }
  double nextTime(double t) override;
  void applyState(unsigned char* row) const override;
  bool isFinished() const override { return m_hasEnded && m_phase == Phase::None; }

private:
  enum class Phase { None, High, Low };
  PulseTrain m_train;
  Phase m_phase = Phase::None;
  bool m_hasEnded = false;
};

/// An output's own states, later or earlier than they were. What falls before 0 is dropped.
class PulseOperationDelay : public PulseOperationAbstract {
public:
  PulseOperationDelay(const Timetable& table, int output, double delay);
  double firstTime() override;
  double nextTime(double t) override;
  void applyState(unsigned char* row) const override;
  bool isFinished() const override { return m_index == m_times.size(); }

private:
  std::vector<unsigned char> m_states;
  std::vector<double> m_times;
  double m_delay;
  int m_output;
  std::size_t m_index = 0;
  unsigned char m_state = 0;
};

/// Merges the events of an operation into the table and compresses it. The other outputs keep their
/// states at all times; an event that all but coincides with a row falls on it. Events before 0 get
/// no row. A table without rows counts as one with state 0 at time 0. Linear in rows, old and new,
/// times outputs.
void applyPulseOperation(Timetable* table, PulseOperationAbstract& operation);

/// Why a tool refuses: title and text of a message. Both null where it does not.
struct Refusal {
  const char* title = nullptr;
  const char* text = nullptr;
  explicit operator bool() const { return text != nullptr; }
};

/// One pulse as a train. Its checks are the width's and those of the train.
PulseTrain singlePulse(double width, double at);
Refusal checkSinglePulse(double width);
/// The first reason against adding a train.
Refusal checkPulseTrain(const PulseTrain& train);
/// The reason against shifting, or clearing, an output: there is none (below 0).
Refusal checkTimeShift(int output);
Refusal checkClear(int output);
