#include "Pwl/PointHistory.h"

static constexpr int mostSteps = 100;

class PointHistory::Step : public QUndoCommand {
public:
  Step(PointHistory* history, const QString& text, const PointRows::Change& change, int modeBefore,
       int modeAfter)
      : QUndoCommand(text), m_history(history), m_change(change), m_modeBefore(modeBefore),
        m_modeAfter(modeAfter) {}
  ~Step() override { m_history->m_rows->forget(m_change, m_isUndone); }

  void undo() override { restore(true, m_modeBefore); }
  void redo() override {
    if (m_isUndone) // it is pushed when it has been done
      restore(false, m_modeAfter);
  }

private:
  void restore(bool isUndone, int mode) {
    m_isUndone = isUndone;
    m_history->m_restore(m_change, isUndone, mode);
  }

  PointHistory* m_history;
  PointRows::Change m_change;
  int m_modeBefore;
  int m_modeAfter;
  bool m_isUndone = false;
};

PointHistory::PointHistory(PointRows* rows, Restore restore)
    : m_rows(rows), m_restore(std::move(restore)) {
  m_stack.setUndoLimit(mostSteps);
}

void PointHistory::step(const QString& text, const int& mode, const std::function<void()>& act) {
  if (m_isInStep) {
    act();
    return;
  }
  const PointRows::State before = m_rows->state();
  const int modeBefore = mode;
  m_isInStep = true;
  act();
  m_isInStep = false;
  const PointRows::Change change = m_rows->changeSince(before);
  if (!change.isEmpty() || mode != modeBefore)
    m_stack.push(new Step(this, text, change, modeBefore, mode));
}
