#pragma once

#include <mutex>

/// The one `State` of the process, with its `mutex` held for as long as this stands. It is made
/// when it is first asked for, whichever library's initialiser that is in, and never destroyed:
/// static objects of modules deregister, and store, while the process ends.
template <class State> class Locked {
public:
  State* operator->() const { return &m_state; }
  State& operator*() const { return m_state; }

private:
  static State& one() {
    static State* const instance = new State;
    return *instance;
  }

  State& m_state = one();
  const std::lock_guard<std::mutex> m_lock{m_state.mutex};
};
