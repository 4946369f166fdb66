#pragma once

#include <QTimer>

#include <functional>

class DialogDriver;
class QJSEngine;
class ScriptEngine;

/// Ends the program cleanly when the user presses Ctrl+C in the terminal, closes it, or asks the
/// process to end. A second time ends the process at once. One at a time.
class Interruption {
public:
  /// Interrupts the script and rejects the dialogs that it has open.
  Interruption(DialogDriver* driver, const ScriptEngine* engine);
  /// Calls `end` from the event loop until this object goes.
  explicit Interruption(std::function<void()> end);
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool wasAsked();
  static int exitStatus(); ///< as shells have it for a program that a signal has ended

private:
  QTimer m_poll;
};
