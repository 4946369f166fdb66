#pragma once

#include <QJSEngine>
#include <QJSValue>
#include <QStringList>

/// What running a piece of script came to: its value, or what it threw (any value may be thrown).
struct ScriptOutcome {
  bool ok = false;
  QJSValue value;
};

/// An uncaught exception in words.
struct ScriptFault {
  QString headline;  ///< "FILE:LINE: MESSAGE"
  QString message;   ///< without the place, one line
  QStringList stack; ///< "NAME (FILE:LINE)", innermost first; the host's own frames left out
};

/// Runs programs and calls functions so that a thrown value is told from a returned one, which
/// QJSEngine alone does only for errors.
class ScriptRunner {
public:
  explicit ScriptRunner(QJSEngine* engine);

  QJSEngine* engine() const { return m_engine; }
  /// The last expression statement's value. May be called while a program runs.
  ScriptOutcome run(const QString& program, const QString& fileName);
  ScriptOutcome call(const QJSValue& function, const QJSValueList& arguments);
  /// As JSON text, any nesting and any value; NaN, infinities and what has no JSON form keep their
  /// script spelling where `spelled`, else they are null. "undefined" for undefined.
  QString toText(const QJSValue& value, bool spelled);
  /// Of any value that was thrown.
  ScriptFault describe(const QJSValue& thrown);

  /// A copy for the host to read, in which nothing of the script runs: getters have been asked, and
  /// the outcome is what one of them has thrown. Of a record: an object, or an array, of any
  /// members.
  ScriptOutcome takeRecord(const QJSValue& value) { return call(m_takeRecord, {value}); }
  /// The functions `takeVector`, of an array or {y, x, divisions}, and `takeRecord`, for the host's
  /// own script code.
  QJSValue takers() const { return m_own; }

private:
  QJSEngine* m_engine;
  QJSValue m_marker; ///< `ended`: the running program has reached its end
  QJSValue m_own;    ///< what ScriptRunner.js gives
  QJSValue m_call;
  QJSValue m_toText;
  QJSValue m_describe;
  QJSValue m_takeRecord;
};

/// The place of the innermost frame that is not the host's, out of an error's `stack`.
struct ScriptPlace {
  QString file; ///< empty where there is none
  int line = 0;
  QString toText() const; ///< "FILE:LINE"
};
ScriptPlace callerPlace(const QString& stack);
