#pragma once

#include "Script/ScriptRunner.h"

#include <QObject>

/// The checks of a script, `check`, `equal` and `near`: counted, and reported where they fail.
class ScriptChecks : public QObject {
  Q_OBJECT

public:
  /// Defines the three as globals of the runner's engine.
  explicit ScriptChecks(ScriptRunner* runner, QObject* parent = nullptr);

  int passed() const { return m_passed; }
  int failedCount() const { return m_failed; }

  Q_INVOKABLE void pass() { ++m_passed; }
  Q_INVOKABLE QString toText(const QJSValue& value) { return m_runner->toText(value, true); }

  Q_INVOKABLE void fail(const QString& message, const QString& stack);
  /// `place` is where the values differ first, "[3].name"; empty for the values themselves.
  Q_INVOKABLE void failEqual(const QString& message, const QString& stack, const QString& place,
                             const QJSValue& actual, const QJSValue& expected);

signals:
  void failed(const QString& line); ///< file, line, message, actual and expected value

private:
  void report(const QString& message, const QString& stack, const QString& detail);

  ScriptRunner* m_runner;
  int m_passed = 0;
  int m_failed = 0;
};
