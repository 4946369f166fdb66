#include "Interruption.h"

#include "Drive/DialogDriver.h"
#include "HostSupport/ProcessGroup.h"
#include "Script/ScriptEngine.h"

#include <QJSEngine>

#include <atomic>
#include <csignal>

namespace {

constexpr int pollInterval = 100; // milliseconds

constexpr int statusOfSignals = 128; ///< as shells have it, the signal's number added

// What ends a program from outside: Ctrl+C, a request to end, and the end of its terminal, which
// not every platform has.
constexpr int endings[] = {SIGINT, SIGTERM,
#ifdef SIGHUP
                           SIGHUP
#endif
};

volatile std::sig_atomic_t s_asked = 0;
std::atomic<QJSEngine*> s_interpreter{nullptr};

void handle(void (*handler)(int)) {
  for (const int ending : endings)
    std::signal(ending, handler);
}

extern "C" void takeInterrupt(int signal) {
  s_asked = signal;
  handle(SIG_DFL);
  ProcessGroup::endPresent(); // now: a second signal ends this process at once
  // Sets an atomic flag that the running script looks at; a script that spins sees nothing else.
  if (QJSEngine* interpreter = s_interpreter.load())
    interpreter->setInterrupted(true);
}

} // namespace

Interruption::Interruption(std::function<void()> end) {
  handle(takeInterrupt);
  QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [end = std::move(end)] {
    if (!wasAsked())
      return;
    ProcessGroup::endPresent(); // one that was just starting
    end();
  });
  m_poll.start(pollInterval);
}

Interruption::Interruption(DialogDriver* driver, const ScriptEngine* engine)
    : Interruption([driver] {
        const QVector<QWidget*> open = driver->openDialogs();
        if (!open.isEmpty())
          open.last()->close();
      }) {
  s_interpreter = engine->jsEngine();
}

Interruption::~Interruption() {
  handle(SIG_DFL);
  s_interpreter = nullptr;
}

bool Interruption::wasAsked() {
  return s_asked != 0;
}

int Interruption::exitStatus() {
  return statusOfSignals + s_asked;
}
