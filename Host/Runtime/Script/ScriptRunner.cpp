#include "Script/ScriptRunner.h"

#include "Script/HostScript.h"

#include <QUrl>

namespace {

/// A statement that gives no value, so that the program's value stands; reached only when nothing
/// was thrown.
QString endOfProgram() {
  return QStringLiteral("\nvar $ended = $end();");
}

QString sourceFile(const QString& source) {
  const QUrl url(source);
  return url.isLocalFile() ? url.toLocalFile() : source;
}

/// "name@file:///a/b.js:12", as the engine writes a frame.
bool readFrame(const QString& frame, QString* name, ScriptPlace* place) {
  const int at = frame.indexOf(QLatin1Char('@'));
  const int colon = frame.lastIndexOf(QLatin1Char(':'));
  if (at < 0 || colon <= at + 1) // the engine leaves the file out of frames of its own
    return false;
  bool isNumber = false;
  const int line = frame.midRef(colon + 1).toInt(&isNumber);
  if (!isNumber)
    return false;
  *name = frame.left(at);
  *place = {sourceFile(frame.mid(at + 1, colon - at - 1)), line};
  return true;
}

ScriptFault faultOf(const QString& text, const QString& stack) {
  ScriptFault fault;
  fault.message = text.simplified();
  for (const QString& frame : stack.split(QLatin1Char('\n'))) {
    QString name;
    ScriptPlace where;
    if (!readFrame(frame, &name, &where) || where.file == hostScriptName())
      continue;
    if (name.isEmpty() || name == QLatin1String("%entry"))
      name = QStringLiteral("script");
    fault.stack.append(QStringLiteral("%1 (%2)").arg(name, where.toText()));
  }
  const QString place = callerPlace(stack).toText();
  fault.headline =
      place.isEmpty() ? fault.message : QStringLiteral("%1: %2").arg(place, fault.message);
  return fault;
}

} // namespace

QString ScriptPlace::toText() const {
  return file.isEmpty() ? QString() : QStringLiteral("%1:%2").arg(file).arg(line);
}

ScriptPlace callerPlace(const QString& stack) {
  for (const QString& frame : stack.split(QLatin1Char('\n'))) {
    QString name;
    ScriptPlace place;
    if (readFrame(frame, &name, &place) && place.file != hostScriptName())
      return place;
  }
  return {};
}

ScriptRunner::ScriptRunner(QJSEngine* engine)
    : m_engine(engine), m_marker(engine->newObject()),
      m_own(runHostScript(engine, QStringLiteral("ScriptRunner"), m_marker)),
      m_call(m_own.property(QStringLiteral("call"))),
      m_toText(m_own.property(QStringLiteral("toText"))),
      m_describe(m_own.property(QStringLiteral("describe"))),
      m_takeRecord(m_own.property(QStringLiteral("takeRecord"))) {}

ScriptOutcome ScriptRunner::run(const QString& program, const QString& fileName) {
  const QString ended = QStringLiteral("ended");
  m_marker.setProperty(ended, false);
  ScriptOutcome outcome;
  outcome.value = m_engine->evaluate(program + endOfProgram(), fileName);
  outcome.ok = m_marker.property(ended).toBool();
  // A program that included this one has not ended yet.
  m_marker.setProperty(ended, false);
  return outcome;
}

ScriptOutcome ScriptRunner::call(const QJSValue& function, const QJSValueList& arguments) {
  QJSValue list = m_engine->newArray(static_cast<uint>(arguments.size()));
  for (int i = 0; i < arguments.size(); ++i)
    list.setProperty(static_cast<quint32>(i), arguments.at(i));
  const QJSValue outcome = m_call.call({function, list});
  if (outcome.isError()) // the engine was interrupted
    return {false, outcome};
  return {outcome.property(QStringLiteral("ok")).toBool(),
          outcome.property(QStringLiteral("value"))};
}

QString ScriptRunner::toText(const QJSValue& value, bool spelled) {
  const ScriptOutcome outcome = call(m_toText, {value, spelled});
  return outcome.ok ? outcome.value.toString() : describe(outcome.value).message;
}

ScriptFault ScriptRunner::describe(const QJSValue& thrown) {
  const ScriptOutcome told = call(m_describe, {thrown});
  if (!told.ok) // the engine was interrupted, and tells of nothing else
    return faultOf(QStringLiteral("Interrupted"), QString());
  return faultOf(told.value.property(QStringLiteral("text")).toString(),
                 told.value.property(QStringLiteral("stack")).toString());
}
