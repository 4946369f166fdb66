#include "Script/Watchdog.h"

#include "HostSupport/System.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::chrono::seconds grace{5};
constexpr std::chrono::milliseconds memoryPeriod{10};
constexpr std::uint64_t bytesOfMegabyte = 1'000'000;
constexpr int releasePeriod =
    100; // ms: what one release opens, a question say, the next one closes

} // namespace

Watchdog::Watchdog(Actions actions, int memoryStatus)
    : m_actions(std::move(actions)), m_memoryStatus(memoryStatus) {
  m_release.setInterval(releasePeriod);
  QObject::connect(&m_release, &QTimer::timeout, &m_release, [this] { m_actions.release(); });
}

Watchdog::~Watchdog() {
  stop();
}

void Watchdog::start(const Limits& limits) {
  stop();
  m_limits = limits;
  m_bytesAtStart = sp_GetProcessMemory();
  m_cause = Cause::None;
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

std::uint64_t Watchdog::takenBytes() const {
  const std::uint64_t bytes = sp_GetProcessMemory();
  return bytes > m_bytesAtStart ? bytes - m_bytesAtStart : 0;
}

static std::uint64_t bytesOf(int megabytes) {
  return static_cast<std::uint64_t>(megabytes) * bytesOfMegabyte;
}

Watchdog::Cause Watchdog::look() const {
  if (m_limits.megabytes > 0 && takenBytes() > bytesOf(m_limits.megabytes))
    return Cause::Memory;
  const Clock::time_point lastMove{Clock::duration(m_lastMove.load())};
  const bool isStill =
      m_limits.seconds > 0 && Clock::now() >= lastMove + std::chrono::seconds(m_limits.seconds);
  return isStill ? Cause::Stillness : Cause::None;
}

/// Memory is looked at all the time; the clock needs no look before its time.
void Watchdog::waitUntil(Lock& lock, Clock::time_point latest) {
  if (m_limits.megabytes > 0)
    latest = std::min<Clock::time_point>(latest, Clock::now() + memoryPeriod);
  m_wake.wait_until(lock, latest);
}

void Watchdog::watch() {
  Lock lock(m_mutex);
  while (!m_isStopping) {
    const Cause cause = look();
    if (cause != Cause::None) {
      expire(lock, cause);
      return;
    }
    const Clock::time_point lastMove{Clock::duration(m_lastMove.load())};
    waitUntil(lock, m_limits.seconds > 0 ? lastMove + std::chrono::seconds(m_limits.seconds)
                                         : Clock::now() + std::chrono::hours(1));
  }
}

void Watchdog::say(Cause cause) const {
  if (cause == Cause::Memory) {
    std::fprintf(stderr, "dialoghost: the script used more than %d MB\n", m_limits.megabytes);
    return;
  }
  const QByteArray what = m_openDialog.isEmpty()
                              ? QByteArrayLiteral("no dialog was open")
                              : QByteArrayLiteral("open was ") + m_openDialog.toUtf8();
  std::fprintf(stderr, "dialoghost: nothing has moved for %d s; %s\n", m_limits.seconds,
               what.constData());
}

void Watchdog::expire(Lock& lock, Cause cause) {
  m_cause = cause;
  say(cause);
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
  const Clock::time_point end = Clock::now() + grace;
  // One stroke of the script, of which no interruption stops it, may be without any bound.
  const std::uint64_t farTooMuch = bytesOf(m_limits.megabytes) * 3 / 2;
  while (!m_isStopping && Clock::now() < end &&
         !(m_limits.megabytes > 0 && takenBytes() > farTooMuch))
    waitUntil(lock, end);
  if (m_isStopping)
    return;
  m_actions.beforeExit();
  std::_Exit(cause == Cause::Memory ? m_memoryStatus : EXIT_FAILURE);
}
