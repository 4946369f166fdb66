#include "Paths.h"

#include <QCoreApplication>
#include <QDir>

QString hostDataDir(const QString& name) {
  const QDir program(QCoreApplication::applicationDirPath());
  const QString installed =
      program.absoluteFilePath(QStringLiteral("../" KV_DATA_DIR "/%1").arg(name));
  if (QDir(installed).exists())
    return QDir::cleanPath(installed);
  // In the source tree the help is one of the documents, and samples have a folder of their own.
  const QString inTree = name == QLatin1String("help")      ? QStringLiteral("docs/help")
                         : name == QLatin1String("samples") ? QStringLiteral("Samples")
                                                            : name;
  return QDir(QStringLiteral(KV_SOURCE_DIR)).absoluteFilePath(inTree);
}
