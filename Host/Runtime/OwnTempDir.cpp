#include "OwnTempDir.h"

#include <QDir>

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

} // namespace

OwnTempDir::OwnTempDir() : m_folder(QDir::tempPath() + QStringLiteral("/dialoghost-XXXXXX")) {
  if (!m_folder.isValid())
    return; // what cannot be put aside says so itself
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
