#pragma once

#include "HostSupport/DigitalSource.h"
#include "HostSupport/YString.h"

#include <QStringList>

#include <vector>

/// Logic states of some outputs over time: a row for each time, holding until the next, with a
/// state code (0 to 11) for every output.
struct Timetable {
  int outputs = 0;
  std::vector<double> times;         ///< seconds, from 0 on, ascending
  std::vector<unsigned char> states; ///< row by row

  std::size_t rows() const { return times.size(); }
  const unsigned char* row(std::size_t index) const { return states.data() + index * width(); }
  unsigned char* row(std::size_t index) { return states.data() + index * width(); }
  /// Adds a row at the end; `rowStates` is not of this table.
  void append(double time, const unsigned char* rowStates);

private:
  std::size_t width() const { return static_cast<std::size_t>(outputs); }
};
bool operator==(const Timetable& a, const Timetable& b);

/// Reads the text of a digital source that has so many outputs. False where it cannot be read: the
/// table is then as before, and `error` says where the fault is and what was expected.
bool readTable(const char* text, int outputs, Timetable* table, YString* error);

/// The text of a table: a line for each row, its time at 15 digits, a tab, and for each output a
/// tab and its state. A row whose time reads as that of the next one gives way to it.
YString writeTable(const Timetable& table);

/// Characters before the first tab of a line, where most of them stand.
int longestTime(const QString& text);

/// Drops each row that repeats the states of the one before. Where one was dropped the table starts
/// at 0 from then on. Whether one was dropped.
bool compress(Timetable* table);

/// Gives a table without rows one at 0, all states 0.
void ensureRow(Timetable* table);

/// Gives the output this state in every row.
void clearOutput(Timetable* table, int output, unsigned char state);

/// Adds an output at state 0 behind the others; a table without rows gets one.
void addOutput(Timetable* table);
/// Adds an output behind the others that is like another one.
void cloneOutput(Timetable* table, int output);
void removeOutput(Timetable* table, int output);
void swapOutputs(Timetable* table, int a, int b);

/// The states that a user can choose from, in the order in which they are offered.
struct StateChoice {
  const char* name;
  unsigned char code;
};
extern const StateChoice stateChoices[digitalStateCount];

/// Round end of an axis of time from 0, and into how many parts it is divided.
struct AxisEnd {
  double end;
  int divisions;
};
/// The end for a table whose last time this is. It is below the time by a millionth of it at most.
AxisEnd axisEnd(double lastTime);

/// Lets the last states hold until `end`: adds a row there if the table stops before.
void extendTo(Timetable* table, double end);

/// Points of a line, joined in their order.
struct Trace {
  std::vector<double> x;
  std::vector<double> y;
};
/// What an output's strip shows: 0.2 for zero, 0.7 for unknown, 1.2 for one, whatever the strength,
/// with vertical edges.
Trace traceOf(const Timetable& table, int output);

/// A table with the names of its outputs, as it was at some moment.
struct TimetableSnapshot {
  Timetable table;
  QStringList names;
};

/// What can be undone: at most the last five snapshots.
class TimetableHistory {
public:
  /// One that is like the newest is no step, and is not taken.
  void push(TimetableSnapshot snapshot);
  /// Null where there is none. Valid until the history changes.
  const TimetableSnapshot* newest() const;
  /// Drops the newest snapshot and returns the one before it, which stays; null, with nothing
  /// dropped, where there is none. Valid until the history changes.
  const TimetableSnapshot* undo();

private:
  std::vector<TimetableSnapshot> m_snapshots; // oldest first
};
