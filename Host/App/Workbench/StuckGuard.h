#pragma once

#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Calls for help, from a thread of its own, when the event loop has not turned for so long: a
/// script that spins would otherwise keep the workbench from answering for ever.
class StuckGuard {
public:
  StuckGuard(int seconds, std::function<void()> callForHelp);
  ~StuckGuard();
  StuckGuard(const StuckGuard&) = delete;
  StuckGuard& operator=(const StuckGuard&) = delete;

  bool hasCalled() const { return m_hasCalled; }

private:
  void watch(int seconds, const std::function<void()>& callForHelp);

  QTimer m_heart;
  std::atomic<int> m_beats{0};
  std::atomic<bool> m_hasCalled{false};
  bool m_isOver = false;
  std::mutex m_mutex;
  std::condition_variable m_end;
  std::thread m_thread;
};
