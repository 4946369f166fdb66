#pragma once

#include "Call/FunctionTable.h"

#include <QJSValue>
#include <QObject>
#include <QStringList>

class DialogDriver;
class QJSEngine;

/// The development host's script language: JavaScript with every registered function as a global,
/// `host`, `print`, `include`, `command` and the checks. See docs/scripting.md.
class ScriptEngine : public QObject {
  Q_OBJECT

public:
  struct Outcome {
    bool ok = false;
    QJSValue value;
    QString error; ///< message with file and line, where not ok
  };

  ScriptEngine(FunctionTable* table, DialogDriver* driver, QObject* parent = nullptr);
  ~ScriptEngine() override;

  void setArguments(const QStringList& arguments); ///< `host.args`
  /// Ends the script with a failure when nothing has moved for so long; 0: never.
  void setTimeout(int seconds);
  /// Ends the script with a failure when the process has taken so much memory since it began; 0:
  /// never. What the script asks for in one stroke may end the process, with `statusOfMemory`.
  void setMemoryLimit(int megabytes);
  static int usualMemoryLimit(); ///< 4000 MB, or half of the machine's where that is less
  bool hasTakenTooMuchMemory() const;
  static constexpr int statusOfMemory = 3; ///< of a process that ended so

  /// For `setInterrupted`, which may be called from a signal handler.
  QJSEngine* jsEngine() const;

  /// A program is its own scope for `let` and `const`; what it declares by `var` and `function` is
  /// global. `path` may be relative to the current folder.
  Outcome runFile(const QString& path);
  Outcome evaluate(const QString& text, const QString& fileName = QStringLiteral("<text>"));
  QString toJson(const QJSValue& value); ///< as JSON text; "undefined" for none

  /// A script function over the entry points that tests and the tour use.
  QJSValue call(const QString& function, const std::vector<ScriptVector>& arguments);

  int checksPassed() const;
  int checksFailed() const;
  bool hasFailed() const; ///< a check, an uncaught exception, or the driver
  /// The closing line "N passed, N failed"; empty where no check was made and nothing failed.
  QString summary() const;

signals:
  void printed(const QString& line);
  void problem(const QString& line); ///< a failed check, an exception, a failure of the driver
  /// A function was called: for the history. `error` is empty where it succeeded.
  void called(const QString& function, const QString& argumentsJson, const CallResult& result,
              const QString& error);

private:
  class Private;
  Private* d;
};
