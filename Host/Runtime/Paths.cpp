#include "Paths.h"

#include <QCoreApplication>
#include <QDir>

QString hostDataDir(const QString& name) {
  const QDir program(QCoreApplication::applicationDirPath());
  const QFileInfo folder(
      program.absoluteFilePath(QStringLiteral(KV_DATA_FROM_PROGRAM "/%1").arg(name)));
  // In a build these are links into the source tree.
  return folder.exists() ? folder.canonicalFilePath() : QDir::cleanPath(folder.filePath());
}
