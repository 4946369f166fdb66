#include "Services/Simulator.h"

#include "Call/CommandWords.h"
#include "Call/ScriptVector.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Options.h"
#include "HostSupport/ProcessGroup.h"
#include "HostSupportQt/Text.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QTimer>

#include <cmath>

namespace {

constexpr double usualLimit = 10;     // s
constexpr double longestLimit = 3600; // s
constexpr int killWait = 2000;        // ms
constexpr int mostWords = 1000;       // characters of what the program says

/// Swallows what users do, so that nothing of it is left over to act when the wait ends.
class InputBarrier : public QObject {
public:
  InputBarrier() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QCoreApplication::instance()->installEventFilter(this);
  }
  ~InputBarrier() override { QApplication::restoreOverrideCursor(); }

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::Close:
      event->ignore();
      return true;
    default:
      return false;
    }
  }
};

/// What the program starts ends with it.
class GroupProcess : public QProcess {
protected:
  void setupChildProcess() override { ProcessGroup::enter(); }
};

CallError failure(const QString& text) {
  return CallError(QStringLiteral("RunBRENNIX: %1").arg(text));
}

/// The program, and the words that go before those of the command.
QStringList simulatorWords() {
  const QString setting = toQs(sp_GetStringOption("SimulatorProgram"));
  const QStringList words = commandWords(setting);
  if (!words.isEmpty())
    return words;
  const QString folder = QCoreApplication::applicationDirPath();
  const QString found = QStandardPaths::findExecutable(QStringLiteral("brennixcheck"), {folder});
  if (found.isEmpty())
    throw failure(QStringLiteral("there is no program brennixcheck in %1")
                      .arg(QDir::toNativeSeparators(folder)));
  return {found};
}

double timeLimit() {
  double seconds = 0;
  const bool isSet = sp_IsEngNumber(sp_GetStringOption("SimulatorTimeLimit"), &seconds);
  return isSet && seconds > 0 ? std::fmin(seconds, longestLimit) : usualLimit;
}

void removeOldMessages(const QString& deck) {
  const QFileInfo old(deck + QStringLiteral(".err"));
  if ((old.exists() || old.isSymLink()) && !QFile::remove(old.filePath()))
    throw failure(QStringLiteral("the old message file %1 cannot be removed")
                      .arg(QDir::toNativeSeparators(old.filePath())));
}

/// Keeps the beginning of what the program says of its faults; the rest is dropped.
void listen(QProcess* process, QByteArray* said) {
  said->append(process->readAllStandardError());
  said->truncate(mostWords);
}

/// False where the time is over before the program has ended.
bool waitForEnd(QProcess* process, ProcessGroup* group, double seconds, QByteArray* said) {
  const InputBarrier barrier;
  QEventLoop loop;
  QObject::connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                   &QEventLoop::quit);
  QObject::connect(process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  QObject::connect(process, &QProcess::readyReadStandardError, &loop,
                   [process, said] { listen(process, said); });
  QTimer::singleShot(static_cast<int>(std::ceil(seconds * 1000)), Qt::PreciseTimer, &loop,
                     &QEventLoop::quit);
  process->start();
  if (process->state() != QProcess::NotRunning) {
    group->adopt(process->processId());
    loop.exec();
  }
  if (process->state() == QProcess::NotRunning)
    return true;
  ProcessGroup::endPresent();
  process->kill();
  process->waitForFinished(killWait);
  return false;
}

} // namespace

void runSimulator(const QStringList& words) {
  static bool isRunning = false;
  if (isRunning)
    throw failure(QStringLiteral("another run is under way"));
  const QScopedValueRollback<bool> running(isRunning, true);
  if (words.isEmpty())
    throw failure(QStringLiteral("no deck was named"));
  const QStringList program = simulatorWords();
  removeOldMessages(words.last());

  GroupProcess process;
  ProcessGroup group;
  process.setProgram(program.first());
  process.setArguments(program.mid(1) + words);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  QByteArray said;
  const double limit = timeLimit();
  const bool hasEnded = waitForEnd(&process, &group, limit, &said);
  listen(&process, &said);

  const QString name = QDir::toNativeSeparators(program.first());
  if (!hasEnded)
    throw failure(
        QStringLiteral("%1 has not ended within %2 s and was stopped").arg(name).arg(limit));
  if (group.wasEnded())
    throw failure(QStringLiteral("%1 was stopped").arg(name));
  if (process.error() == QProcess::FailedToStart)
    throw failure(QStringLiteral("%1 could not be started: %2").arg(name, process.errorString()));
  const QString complaint = QString::fromUtf8(said).simplified();
  if (process.exitStatus() == QProcess::CrashExit)
    throw failure(QStringLiteral("%1 crashed. %2").arg(name, complaint).trimmed());
  if (process.exitCode() != 0)
    throw failure(QStringLiteral("%1 ended with status %2. %3")
                      .arg(name)
                      .arg(process.exitCode())
                      .arg(complaint)
                      .trimmed());
}
