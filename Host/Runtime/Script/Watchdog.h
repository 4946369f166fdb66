#pragma once

#include <QString>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

/// Ends a script in which nothing has moved for a while, whatever holds it up: a dialog that nobody
/// answers, a loop in the script, or code that never comes back; and one that takes more memory
/// than it may.
///
/// It then says so on the standard error output (which dialog was open, how much memory it was),
/// interrupts the script and releases open dialogs. Should `stop` not be called within five seconds
/// more, or the memory grow by another half of what was allowed, the process ends.
class Watchdog {
public:
  struct Actions {
    std::function<void()> interrupt;  ///< in the watchdog's thread
    std::function<void()> release;    ///< in this object's thread, again and again until `stop`
    std::function<void()> beforeExit; ///< in the watchdog's thread, while the others still run
  };
  struct Limits {
    int seconds = 0;   ///< without a move; 0: any time
    int megabytes = 0; ///< more than at the start; 0: any amount
    bool any() const { return seconds > 0 || megabytes > 0; }
  };
  enum class Cause { None, Stillness, Memory };

  /// `memoryStatus` is that of the process where it ends because of the memory.
  Watchdog(Actions actions, int memoryStatus);
  ~Watchdog();

  void start(const Limits& limits);
  void stop();
  bool isRunning() const { return m_thread.joinable(); }
  /// Why the script was ended since the last `start`.
  Cause cause() const { return m_cause; }

  void moved();                                   ///< the script is alive: the time starts anew
  void setOpenDialog(const QString& description); ///< empty: none

private:
  using Clock = std::chrono::steady_clock;
  using Lock = std::unique_lock<std::mutex>;
  void watch();
  Cause look() const;
  std::uint64_t takenBytes() const;
  void waitUntil(Lock& lock, Clock::time_point latest);
  void say(Cause cause) const;
  void expire(Lock& lock, Cause cause);

  Actions m_actions;
  int m_memoryStatus;
  QTimer m_release;
  std::thread m_thread;
  std::mutex m_mutex;
  std::condition_variable m_wake;
  bool m_isStopping = false;
  QString m_openDialog;
  Limits m_limits;
  std::uint64_t m_bytesAtStart = 0;
  std::atomic<Clock::rep> m_lastMove{0};
  std::atomic<Cause> m_cause{Cause::None};
};
