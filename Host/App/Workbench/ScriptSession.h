#pragma once

#include "Script/ScriptEngine.h"
#include "Workbench/DialogRecorder.h"

#include <QElapsedTimer>
#include <QObject>

#include <memory>

struct CallRecord;

/// Runs the workbench's scripts, one at a time.
///
/// Each run of the editor's script gets an engine of its own, so that it finds nothing left over by
/// the one before; the console goes on in the engine of the last run, so that one can look at what
/// it left behind.
class ScriptSession : public QObject {
  Q_OBJECT

public:
  ScriptSession(FunctionTable* table, DialogDriver* driver, QObject* parent = nullptr);
  ~ScriptSession() override;

  bool isRunning() const { return m_isRunning; }
  /// Runs a whole script; false, with nothing done, while another runs.
  bool run(const QString& text, const QString& fileName);
  /// Runs one line in the present engine; false while another runs.
  bool evaluate(const QString& line);
  /// Interrupts the running script and rejects what it has open.
  void stop();

signals:
  void runningChanged(bool isRunning);
  /// The value as JSON, or the error with the line where it was raised (0: unknown).
  void finished(bool ok, const QString& value, const QString& error, int line);
  void summarized(const QString& summary); ///< "N passed, N failed"
  void printed(const QString& line);
  void problem(const QString& line);
  void called(const CallRecord& record, const CallResult& result);
  void dialogReady(QWidget* dialog); ///< of the running script

private:
  void renewEngine();
  void execute(const QString& text, const QString& fileName, bool isRun);
  void keepAnswering();
  void noteCall(const QString& function, const QString& arguments, const CallResult& result,
                const QString& error);

  FunctionTable* m_table;
  DialogDriver* m_driver;
  std::unique_ptr<ScriptEngine> m_engine;
  DialogRecorder m_recorder;
  QElapsedTimer m_sinceAnswer;
  bool m_isRunning = false;
  bool m_isStopped = false;
};
