#include "Script/ScriptEngine.h"

#include "Drive/DialogDriver.h"
#include "HostSupport/ProcessGroup.h"
#include "HostSupport/System.h"
#include "OwnTempDir.h"
#include "Script/ScriptChecks.h"
#include "Script/ScriptHost.h"
#include "Script/ScriptRunner.h"
#include "Script/ScriptValues.h"
#include "Script/Watchdog.h"
#include "Services/HostFacts.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QMetaMethod>

#include <algorithm>

namespace {

constexpr int mostFrames = 10;

QString describeDialog(const QWidget* dialog) {
  const QString name = dialog->objectName().isEmpty()
                           ? QLatin1String(dialog->metaObject()->className())
                           : dialog->objectName();
  return dialog->windowTitle().isEmpty()
             ? name
             : QStringLiteral("%1 \"%2\"").arg(name, dialog->windowTitle()).simplified();
}

} // namespace

class ScriptEngine::Private {
public:
  Private(ScriptEngine* owner, FunctionTable* table, DialogDriver* scriptDriver)
      : q(owner), driver(scriptDriver), runner(&js), checks(&runner),
        host(&runner, table, scriptDriver),
        watchdog({[this] { interrupt(); }, [this] { release(); },
                  [] { OwnTempDir::removeBeforeExit(); }},
                 statusOfMemory) {}

  Outcome run(const QString& program, const QString& fileName);
  Outcome fail(const QString& message, const QStringList& stack = {});
  void begin();
  void end();
  void interrupt();
  void release();
  QString causeText() const;
  void noteOpenDialog();
  void report(const QString& line) {
    ++otherFailures;
    emit q->problem(line);
  }

  ScriptEngine* q;
  QPointer<DialogDriver> driver;
  QJSEngine js;
  ScriptRunner runner;
  ScriptChecks checks;
  ScriptHost host;
  Watchdog watchdog;
  Watchdog::Limits limits;
  bool hasTakenTooMuch = false;
  int depth = 0; ///< programs of one engine may run inside one another, from the workbench
  int otherFailures = 0;
};

void ScriptEngine::Private::begin() {
  host.defineFunctions();
  if (driver)
    driver->beginScope();
  if (++depth == 1 && limits.any()) {
    noteOpenDialog();
    watchdog.start(limits);
  }
}

void ScriptEngine::Private::end() {
  if (driver)
    driver->endScope();
  if (--depth > 0)
    return;
  watchdog.stop();
  if (watchdog.cause() != Watchdog::Cause::None)
    js.setInterrupted(false);
}

/// Why the watchdog has ended the program that runs; empty where it has not.
QString ScriptEngine::Private::causeText() const {
  switch (watchdog.isRunning() ? watchdog.cause() : Watchdog::Cause::None) {
  case Watchdog::Cause::Stillness:
    return QStringLiteral("ended, since nothing had moved for %1 s").arg(limits.seconds);
  case Watchdog::Cause::Memory:
    return QStringLiteral("ended, since it used more than %1 MB").arg(limits.megabytes);
  case Watchdog::Cause::None:
    break;
  }
  return QString();
}

ScriptEngine::Outcome ScriptEngine::Private::fail(const QString& message,
                                                  const QStringList& stack) {
  report(message);
  if (stack.size() > 1)
    for (const QString& frame : stack.mid(0, mostFrames))
      emit q->problem(QStringLiteral("    in %1").arg(frame));
  if (stack.size() > mostFrames)
    emit q->problem(QStringLiteral("    and %1 more").arg(stack.size() - mostFrames));
  return {false, QJSValue(), message};
}

ScriptEngine::Outcome ScriptEngine::Private::run(const QString& program, const QString& fileName) {
  begin();
  const ScriptOutcome outcome = runner.run(program, fileName);
  const QString cause = causeText();
  hasTakenTooMuch |= watchdog.cause() == Watchdog::Cause::Memory;
  end();
  if (!cause.isEmpty())
    return fail(QStringLiteral("%1: %2").arg(fileName, cause));
  if (outcome.ok)
    return {true, outcome.value, QString()};
  const ScriptFault fault = runner.describe(outcome.value);
  const QString headline = fault.headline == fault.message
                               ? QStringLiteral("%1: %2").arg(fileName, fault.message)
                               : fault.headline;
  Outcome failed = fail(headline, fault.stack);
  failed.value = outcome.value;
  return failed;
}

/// From any thread.
void ScriptEngine::Private::interrupt() {
  js.setInterrupted(true);
  ProcessGroup::endPresent();
}

void ScriptEngine::Private::release() {
  ProcessGroup::endPresent(); // one that was just starting
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
    return;
  }
  if (!driver)
    return;
  const QVector<QWidget*> open = driver->openDialogs();
  if (open.isEmpty())
    return;
  if (auto* dialog = qobject_cast<QDialog*>(open.last()))
    dialog->reject();
  else
    open.last()->close();
}

void ScriptEngine::Private::noteOpenDialog() {
  const QVector<QWidget*> open = driver ? driver->openDialogs() : QVector<QWidget*>();
  watchdog.setOpenDialog(open.isEmpty() ? QString() : describeDialog(open.last()));
}

ScriptEngine::ScriptEngine(FunctionTable* table, DialogDriver* driver, QObject* parent)
    : QObject(parent), d(new Private(this, table, driver)) {
  recordHelpRequests();
  connect(&d->checks, &ScriptChecks::failed, this, &ScriptEngine::problem);
  connect(&d->host, &ScriptHost::printed, this, &ScriptEngine::printed);
  connect(&d->host, &ScriptHost::called, this,
          [this](const QString& function, const std::vector<ScriptVector>& arguments,
                 const CallResult& result, const QString& error) {
            // Writing out a million arguments is for those who want to see them.
            if (isSignalConnected(QMetaMethod::fromSignal(&ScriptEngine::called)))
              emit called(function, argumentsToJson(arguments), result, error);
          });
  connect(&d->host, &ScriptHost::moved, this, [this] { d->watchdog.moved(); });
  if (driver) {
    connect(driver, &DialogDriver::moved, this, [this] {
      d->watchdog.moved();
      d->noteOpenDialog();
    });
    connect(driver, &DialogDriver::failed, this, [this](const QString& line) { d->report(line); });
  }
}

ScriptEngine::~ScriptEngine() {
  delete d;
}

void ScriptEngine::setArguments(const QStringList& arguments) {
  d->host.setArguments(arguments);
}

void ScriptEngine::setTimeout(int seconds) {
  d->limits.seconds = qMax(0, seconds);
}

void ScriptEngine::setMemoryLimit(int megabytes) {
  d->limits.megabytes = qMax(0, megabytes);
}

int ScriptEngine::usualMemoryLimit() {
  constexpr std::uint64_t most = 4000;
  SystemMemoryInfo info;
  const bool isKnown = sp_GetSystemMemoryInfo(&info);
  return static_cast<int>(isKnown ? std::min(most, info.total / 2'000'000) : most);
}

bool ScriptEngine::hasTakenTooMuchMemory() const {
  return d->hasTakenTooMuch;
}

QJSEngine* ScriptEngine::jsEngine() const {
  return &d->js;
}

ScriptEngine::Outcome ScriptEngine::runFile(const QString& path) {
  const QString file = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
  QString program;
  try {
    program = ScriptHost::readProgram(file);
  } catch (const CallError& error) {
    return d->fail(QString::fromUtf8(error.what()));
  }
  return d->run(program, file);
}

ScriptEngine::Outcome ScriptEngine::evaluate(const QString& text, const QString& fileName) {
  return d->run(text, fileName);
}

QString ScriptEngine::toJson(const QJSValue& value) {
  return d->runner.toText(value, false);
}

QJSValue ScriptEngine::call(const QString& function, const std::vector<ScriptVector>& arguments) {
  try {
    return resultToScript(&d->js, d->host.callFunction(d->host.function(function), arguments));
  } catch (const std::exception& error) {
    return d->js.newErrorObject(QJSValue::GenericError, QString::fromUtf8(error.what()));
  }
}

int ScriptEngine::checksPassed() const {
  return d->checks.passed();
}

int ScriptEngine::checksFailed() const {
  return d->checks.failedCount();
}

bool ScriptEngine::hasFailed() const {
  return checksFailed() > 0 || d->otherFailures > 0;
}

QString ScriptEngine::summary() const {
  const int failed = checksFailed() + d->otherFailures;
  if (checksPassed() + failed == 0)
    return QString();
  return QStringLiteral("%1 passed, %2 failed").arg(checksPassed()).arg(failed);
}
