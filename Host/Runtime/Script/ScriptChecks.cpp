#include "Script/ScriptChecks.h"

#include "Script/HostScript.h"

#include <QQmlEngine>

namespace {

constexpr int longestValue = 300;

QString shortened(const QString& text) {
  return text.size() <= longestValue ? text : text.left(longestValue) + QChar(0x2026);
}

} // namespace

ScriptChecks::ScriptChecks(ScriptRunner* runner, QObject* parent)
    : QObject(parent), m_runner(runner) {
  QJSEngine* engine = runner->engine();
  QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
  runHostScript(engine, QStringLiteral("ScriptChecks"), engine->newQObject(this));
}

void ScriptChecks::report(const QString& message, const QString& stack, const QString& detail) {
  ++m_failed;
  QStringList parts{callerPlace(stack).toText(), QStringLiteral("check failed"),
                    message.simplified(), detail};
  parts.removeAll(QString());
  emit failed(parts.join(QStringLiteral(": ")));
}

void ScriptChecks::fail(const QString& message, const QString& stack) {
  report(message, stack, QString());
}

void ScriptChecks::failEqual(const QString& message, const QString& stack, const QString& place,
                             const QJSValue& actual, const QJSValue& expected) {
  const QString got = shortened(m_runner->toText(actual, true));
  const QString wanted = shortened(m_runner->toText(expected, true));
  const QString at = place.isEmpty() ? QString() : QStringLiteral(" at %1").arg(place);
  report(message, stack, QStringLiteral("got %1, expected %2%3").arg(got, wanted, at));
}
