#include "Interruption.h"

#include "Drive/DialogDriver.h"
#include "Script/ScriptEngine.h"

#include <QJSEngine>

#include <atomic>
#include <csignal>

namespace {

constexpr int pollInterval = 100; // milliseconds

volatile std::sig_atomic_t s_asked = 0;
std::atomic<QJSEngine*> s_interpreter{nullptr};

extern "C" void takeInterrupt(int) {
  s_asked = 1;
  std::signal(SIGINT, SIG_DFL);
  // Sets an atomic flag that the running script looks at; a script that spins sees nothing else.
  if (QJSEngine* interpreter = s_interpreter.load())
    interpreter->setInterrupted(true);
}

} // namespace

Interruption::Interruption(std::function<void()> end) {
  std::signal(SIGINT, takeInterrupt);
  QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [end = std::move(end)] {
    if (wasAsked())
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
  std::signal(SIGINT, SIG_DFL);
  s_interpreter = nullptr;
}

bool Interruption::wasAsked() {
  return s_asked != 0;
}
