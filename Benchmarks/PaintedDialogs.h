#pragma once

#include "Call/FunctionTable.h"
#include "Call/HostCall.h"
#include "HostSupport/Files.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTemporaryDir>

#include <chrono>
#include <functional>

// What benchmarks share that time dialogs from their making to their first paint.

/// Closes every dialog as soon as it has painted itself, and notes when that was.
class PaintedDialogs : public QObject {
public:
  using Clock = std::chrono::steady_clock;

  /// Runs `open`, which shows one dialog; the seconds to its first paint.
  template <class Open> static double secondsToPaint(Open open) {
    const Clock::time_point start = Clock::now();
    open();
    return std::chrono::duration<double>(painted - start).count();
  }

  /// What is done to a dialog that has painted itself, before it is closed.
  inline static std::function<void(QDialog*)> onPaint;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->inherits("QDialog") && !m_closing) {
      m_closing = true;
      QMetaObject::invokeMethod(
          watched,
          [this, watched] {
            painted = Clock::now();
            QPointer<QDialog> dialog = static_cast<QDialog*>(watched);
            if (onPaint)
              onPaint(dialog);
            if (dialog && dialog->isVisible())
              dialog->reject();
            m_closing = false;
          },
          Qt::QueuedConnection);
    }
    return false;
  }

private:
  inline static Clock::time_point painted;
  bool m_closing = false;
};

/// The module's functions, loaded by `runDialogBenchmarks`.
inline FunctionTable& functionTable() {
  // Never destroyed: what it unregisters with has gone when the program ends.
  static FunctionTable* const table = new FunctionTable;
  return *table;
}

/// Runs the registered benchmarks in an application with settings of its own and the module loaded.
inline int runDialogBenchmarks(int argc, char** argv) {
  qputenv("QT_FONT_DPI", "96");
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QTemporaryDir settings;
  sp_SetSettingsDir(settings.path().toUtf8().constData());
  functionTable().loadModule(QStringLiteral(KV_MODULE_FILE));
  PaintedDialogs closer;
  application.installEventFilter(&closer);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
