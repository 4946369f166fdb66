#pragma once

#include "Core/Pwl/PointRows.h"

#include <QUndoStack>

#include <functional>

/// The steps of a point table, to be undone and done again. A step keeps only the places of the
/// rows that it changed.
class PointHistory {
public:
  /// Shows what a change has put in, `isUndone` or done again, with the mode of the table as it
  /// was.
  using Restore = std::function<void(const PointRows::Change& change, bool isUndone, int mode)>;

  PointHistory(PointRows* rows, Restore restore);

  /// Whatever `act` does to the rows, and within it further steps, is one step; none where it
  /// changes nothing. `mode` is read before and after.
  void step(const QString& text, const int& mode, const std::function<void()>& act);
  bool isInStep() const { return m_isInStep; }
  void clear() { m_stack.clear(); }

  void undo() { m_stack.undo(); }
  void redo() { m_stack.redo(); }

private:
  class Step;

  PointRows* m_rows;
  Restore m_restore;
  bool m_isInStep = false;
  QUndoStack m_stack; ///< goes first: its steps know the rows
};
