#include "Workbench/ScriptSession.h"

#include "Drive/DialogDriver.h"
#include "Workbench/CallRecord.h"
#include "Workbench/StuckGuard.h"

#include <QCoreApplication>
#include <QJSEngine>
#include <QRegularExpression>

namespace {

constexpr int longestSilence = 30; // seconds without a turn of the event loop
constexpr int answerInterval = 50; // milliseconds

/// The line that an error message "FILE:LINE: …" names in `fileName`; 0 where it names none.
int errorLine(const QString& error, const QString& fileName) {
  const QRegularExpression place(QRegularExpression::escape(fileName) + QStringLiteral(":(\\d+)"));
  const QRegularExpressionMatch match = place.match(error);
  return match.hasMatch() ? match.captured(1).toInt() : 0;
}

} // namespace

ScriptSession::ScriptSession(FunctionTable* table, DialogDriver* driver, QObject* parent)
    : QObject(parent), m_table(table), m_driver(driver) {
  connect(driver, &DialogDriver::dialogReady, this, [this](QWidget* dialog) {
    if (!m_isRunning)
      return; // the workbench's own
    m_recorder.watch(dialog);
    emit dialogReady(dialog);
  });
}

ScriptSession::~ScriptSession() = default;

void ScriptSession::renewEngine() {
  m_engine.reset(); // services that a script provides are the process's: never two engines at once
  m_driver->clearFailures();
  m_engine = std::make_unique<ScriptEngine>(m_table, m_driver);
  m_engine->setMemoryLimit(ScriptEngine::usualMemoryLimit());
  connect(m_engine.get(), &ScriptEngine::printed, this, [this](const QString& line) {
    emit printed(line);
    keepAnswering();
  });
  connect(m_engine.get(), &ScriptEngine::problem, this, &ScriptSession::problem);
  connect(m_engine.get(), &ScriptEngine::called, this, &ScriptSession::noteCall);
}

bool ScriptSession::run(const QString& text, const QString& fileName) {
  if (m_isRunning)
    return false;
  renewEngine();
  execute(text, fileName, true);
  return true;
}

bool ScriptSession::evaluate(const QString& line) {
  if (m_isRunning)
    return false;
  if (!m_engine)
    renewEngine();
  execute(line, QStringLiteral("<console>"), false);
  return true;
}

void ScriptSession::execute(const QString& text, const QString& fileName, bool isRun) {
  m_isRunning = true;
  m_isStopped = false;
  m_recorder.takeAnswers();
  m_sinceAnswer.start();
  emit runningChanged(true);

  QJSEngine* interpreter = m_engine->jsEngine();
  interpreter->setInterrupted(false);
  ScriptEngine::Outcome outcome;
  bool wasStuck = false;
  {
    const StuckGuard guard(longestSilence, [interpreter] { interpreter->setInterrupted(true); });
    outcome = m_engine->evaluate(text, fileName);
    wasStuck = guard.hasCalled();
  }
  interpreter->setInterrupted(false);

  const QString value = outcome.ok ? m_engine->toJson(outcome.value) : QString();
  QString error = outcome.error;
  if (!outcome.ok && m_isStopped)
    error = tr("The script was stopped.");
  else if (!outcome.ok && wasStuck)
    error = tr("The script was stopped: it had kept the workbench from answering for %n s. "
               "\"dialoghost run\" takes scripts of any length.",
               nullptr, longestSilence);
  m_isRunning = false;
  emit runningChanged(false);
  emit finished(outcome.ok, value, error, errorLine(outcome.error, fileName));
  const QString summary = isRun ? m_engine->summary() : QString();
  if (!summary.isEmpty())
    emit summarized(summary);
}

void ScriptSession::stop() {
  if (!m_isRunning)
    return;
  m_isStopped = true;
  m_engine->jsEngine()->setInterrupted(true);
  const QVector<QWidget*> open = m_driver->openDialogs();
  for (auto dialog = open.crbegin(); dialog != open.crend(); ++dialog)
    (*dialog)->close();
}

void ScriptSession::keepAnswering() {
  // A script that prints in a loop can be watched and stopped.
  if (m_sinceAnswer.elapsed() < answerInterval)
    return;
  QCoreApplication::processEvents();
  m_sinceAnswer.start();
}

void ScriptSession::noteCall(const QString& function, const QString& arguments,
                             const CallResult& result, const QString& error) {
  CallRecord record;
  record.time = QDateTime::currentDateTime();
  record.function = function;
  record.arguments = arguments;
  record.result = scriptArray(result);
  record.error = error;
  record.answers = m_recorder.takeAnswers();
  emit called(record, result);
}
