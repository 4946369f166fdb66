#include "Script/Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::chrono::seconds grace{5};
constexpr int releasePeriod =
    100; // ms: what one release opens, a question say, the next one closes

} // namespace

Watchdog::Watchdog(Actions actions) : m_actions(std::move(actions)) {
  m_release.setInterval(releasePeriod);
  QObject::connect(&m_release, &QTimer::timeout, &m_release, [this] { m_actions.release(); });
}

Watchdog::~Watchdog() {
  stop();
}

void Watchdog::start(int seconds) {
  stop();
  m_limit = std::chrono::seconds(seconds);
  m_hasExpired = false;
  m_isStopping = false;
  moved();
  m_thread = std::thread([this] { watch(); });
}

void Watchdog::stop() {
  if (!m_thread.joinable())
    return;
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopping = true;
  }
  m_wake.notify_all();
  m_thread.join();
  m_release.stop();
}

void Watchdog::moved() {
  m_lastMove = Clock::now().time_since_epoch().count();
}

void Watchdog::setOpenDialog(const QString& description) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_openDialog = description;
}

void Watchdog::watch() {
  std::unique_lock<std::mutex> lock(m_mutex);
  while (!m_isStopping) {
    const Clock::time_point deadline{Clock::duration(m_lastMove.load()) + m_limit};
    if (Clock::now() >= deadline) {
      expire(lock);
      return;
    }
    m_wake.wait_until(lock, deadline);
  }
}

void Watchdog::expire(std::unique_lock<std::mutex>& lock) {
  m_hasExpired = true;
  const QByteArray what = m_openDialog.isEmpty()
                              ? QByteArrayLiteral("no dialog was open")
                              : QByteArrayLiteral("open was ") + m_openDialog.toUtf8();
  std::fprintf(stderr, "dialoghost: nothing has moved for %d s; %s\n",
               static_cast<int>(m_limit.count()), what.constData());
  m_actions.interrupt();
  QMetaObject::invokeMethod(
      &m_release,
      [this] {
        if (!isRunning())
          return;
        m_release.start();
        m_actions.release();
      },
      Qt::QueuedConnection);
  if (m_wake.wait_for(lock, grace, [this] { return m_isStopping; }))
    return;
  m_actions.beforeExit();
  std::_Exit(EXIT_FAILURE);
}
