#include "Pwl/SyntaxCheck.h"

#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"
#include "frontend_dynexport.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>

// For the check of another program, which usually takes much less than a second.
static constexpr int longestWait = 3000; // ms
static constexpr int lockPoll = 10;      // ms; the lock's own grows until it never finds it free

KV_DYN_CALL(hostRunCommand, dyn_RunCommand);

static bool open(QFile* file, const QString& path) {
  std::FILE* const made = sp_CreateFile(Tocs(path));
  return made &&
         file->open(made, QIODevice::WriteOnly | QIODevice::Text, QFileDevice::AutoCloseHandle);
}

static bool fill(QFile* file, const QByteArray& contents) {
  const bool isWritten = file->write(contents) == contents.size() && file->flush();
  file->close();
  return isWritten;
}

static bool acquire(QLockFile* lock) {
  QElapsedTimer clock;
  clock.start();
  while (!lock->tryLock(0)) {
    if (lock->error() != QLockFile::LockFailedError || clock.hasExpired(longestWait))
      return false;
    QThread::msleep(lockPoll);
  }
  return true;
}

/// A simulator that has nothing to say leaves no file.
static SyntaxStatus readMessages(const QString& path, SyntaxMessages* messages) {
  const QFileInfo file(path);
  if (!file.exists() && !file.isSymLink())
    return SyntaxStatus::Passed;
  std::string bytes;
  if (!sp_ReadPlainFile(Tocs(path), &bytes, nullptr))
    return SyntaxStatus::Unreadable;
  QString text = QString::fromStdString(bytes);
  *messages = SyntaxMessages(text.remove(QLatin1Char('\r')));
  return SyntaxStatus::Faults;
}

SyntaxStatus checkSyntax(const YString& folder, const QString& deviceName, const LineStore& points,
                         SyntaxMessages* messages) {
  const auto path = [&folder](const char* name) {
    return toQs(folder) + QLatin1Char('/') + QLatin1String(name);
  };
  *messages = SyntaxMessages();
  if (!sp_MakePrivateDir(folder))
    return sp_ExistDir(folder) ? SyntaxStatus::NotPrivate : SyntaxStatus::NotRun;
  // The names are the same for all programs that use the folder.
  QLockFile lock(path(syntaxLockFile));
  lock.setStaleLockTime(0); // but that of a program that has died
  if (!acquire(&lock))
    return lock.error() == QLockFile::LockFailedError ? SyntaxStatus::Busy : SyntaxStatus::NotRun;
  const QString deck = path(syntaxDeckFile);
  QFile pointsFile;
  QFile deckFile;
  if (!open(&pointsFile, path(syntaxPointsFile)))
    return SyntaxStatus::NotRun;
  if (!fill(&pointsFile, points.joined()) || !open(&deckFile, deck) ||
      !fill(&deckFile, syntaxCheckDeck(deviceName, path(syntaxPointsFile)).toUtf8()))
    return SyntaxStatus::NotWriteable;
  if (hostRunCommand) {
    const YString command = toYs(syntaxCheckCommand(deck));
    hostRunCommand(command, sp_HashValue(command));
  }
  return readMessages(path(syntaxMessageFile), messages);
}
