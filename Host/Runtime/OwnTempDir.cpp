#include "OwnTempDir.h"

#include "HostSupport/System.h"
#include "HostSupportQt/Text.h"

#include <QDir>
#include <QFileInfo>

#include <mutex>

namespace {

/// Each platform looks at some of them.
constexpr const char* variables[] = {"TMPDIR", "TMP", "TEMP"};

std::mutex mutex;
QString present;

void setPresent(const QString& path) {
  const std::lock_guard<std::mutex> lock(mutex);
  present = path;
}

constexpr char folderName[] = "dialoghost-XXXXXX";

QString lockIn(const QString& folder) {
  return folder + QStringLiteral("/.in-use");
}

/// Whether the process that made the folder is gone. One without a lock is about to get it.
bool isAbandoned(const QString& folder) {
  if (!QFileInfo(lockIn(folder)).isFile())
    return false;
  QLockFile lock(lockIn(folder));
  lock.setStaleLockTime(0); // however old, as long as the process lives
  return lock.tryLock(0);
}

void removeAbandoned(const QFileInfo& own) {
  const QString pattern =
      QString::fromLatin1(folderName).replace(QLatin1Char('X'), QLatin1Char('?'));
  const QFileInfoList folders =
      own.dir().entryInfoList({pattern}, QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
  for (const QFileInfo& folder : folders)
    if (folder.fileName() != own.fileName() && folder.ownerId() == own.ownerId() &&
        isAbandoned(folder.filePath()))
      QDir(folder.filePath()).removeRecursively();
}

} // namespace

OwnTempDir::OwnTempDir()
    : m_folder(QDir::tempPath() + QLatin1Char('/') + QLatin1String(folderName)),
      m_inUse(lockIn(m_folder.path())) {
  if (!m_folder.isValid()) {
    sp_ReportMessage(Tocs(QStringLiteral("No temporary folder of its own can be made in %1: %2. "
                                         "The common one is used.")
                              .arg(QDir::tempPath(), m_folder.errorString())));
    return;
  }
  m_inUse.setStaleLockTime(0);
  m_inUse.tryLock(0);
  removeAbandoned(QFileInfo(m_folder.path()));
  const QByteArray path = QDir::toNativeSeparators(m_folder.path()).toLocal8Bit();
  for (const char* variable : variables) {
    m_before.emplace_back(variable, qgetenv(variable));
    qputenv(variable, path);
  }
  setPresent(m_folder.path());
}

OwnTempDir::~OwnTempDir() {
  setPresent(QString());
  for (const auto& [variable, value] : m_before)
    value.isNull() ? qunsetenv(variable) : qputenv(variable, value);
}

void OwnTempDir::removeBeforeExit() {
  const std::lock_guard<std::mutex> lock(mutex);
  if (!present.isEmpty())
    QDir(present).removeRecursively();
}
