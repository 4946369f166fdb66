#include "Workbench/StuckGuard.h"

StuckGuard::StuckGuard(int seconds, std::function<void()> callForHelp) {
  QObject::connect(&m_heart, &QTimer::timeout, &m_heart, [this] { ++m_beats; });
  m_heart.start(250);
  m_thread = std::thread([this, seconds, call = std::move(callForHelp)] { watch(seconds, call); });
}

StuckGuard::~StuckGuard() {
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isOver = true;
  }
  m_end.notify_one();
  m_thread.join();
}

void StuckGuard::watch(int seconds, const std::function<void()>& callForHelp) {
  std::unique_lock<std::mutex> lock(m_mutex);
  int lastBeat = m_beats;
  int silence = 0;
  while (!m_end.wait_for(lock, std::chrono::seconds(1), [this] { return m_isOver; })) {
    const int beat = m_beats;
    silence = beat == lastBeat ? silence + 1 : 0;
    lastBeat = beat;
    if (silence < seconds)
      continue;
    m_hasCalled = true;
    callForHelp();
  }
}
