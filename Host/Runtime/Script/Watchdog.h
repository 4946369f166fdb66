#pragma once

#include <QString>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Ends a script in which nothing has moved for a while, whatever holds it up: a dialog that nobody
/// answers, a loop in the script, or code that never comes back.
///
/// When the time is over it says on the standard error output which dialog was open, interrupts the
/// script and releases open dialogs; should `stop` not be called within five seconds more, the
/// process ends with status 1.
class Watchdog {
public:
  struct Actions {
    std::function<void()> interrupt;  ///< in the watchdog's thread
    std::function<void()> release;    ///< in this object's thread, again and again until `stop`
    std::function<void()> beforeExit; ///< in the watchdog's thread, while the others still run
  };

  explicit Watchdog(Actions actions);
  ~Watchdog();

  void start(int seconds);
  void stop();
  bool isRunning() const { return m_thread.joinable(); }
  /// Since the last `start`.
  bool hasExpired() const { return m_hasExpired; }

  void moved();                                   ///< the script is alive: the time starts anew
  void setOpenDialog(const QString& description); ///< empty: none

private:
  using Clock = std::chrono::steady_clock;
  void watch();
  void expire(std::unique_lock<std::mutex>& lock);

  Actions m_actions;
  QTimer m_release;
  std::thread m_thread;
  std::mutex m_mutex;
  std::condition_variable m_wake;
  bool m_isStopping = false;
  QString m_openDialog;
  std::chrono::seconds m_limit{0};
  std::atomic<Clock::rep> m_lastMove{0};
  std::atomic<bool> m_hasExpired{false};
};
