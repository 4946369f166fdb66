#include "CheckRun.h"

#include "HostSupport/Files.h"
#include "PointsCheck.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr std::uint64_t largestFile = 1'000'000'000; // bytes

bool readFile(const QString& path, std::string* contents, QString* reason) {
  YString fault;
  const bool isRead = sp_ReadPlainFile(path.toUtf8().constData(), contents, &fault, largestFile);
  *reason = QString::fromUtf8(fault);
  return isRead;
}

bool canRead(const QString& path) {
  return QFileInfo(path).isFile() && QFile(path).open(QIODevice::ReadOnly);
}

/// The switches; false, with the reason, for one that this program does not know.
bool readSwitches(const QStringList& switches, QString* problem) {
  bool checksOnly = false;
  for (int i = 0; i < switches.size(); ++i) {
    const bool hasArguments = switches.at(i) == QLatin1String("/additionalargs");
    if (hasArguments && i + 1 < switches.size()) {
      for (const QString& argument :
           switches.at(++i).split(QStringLiteral(",,"), Qt::SkipEmptyParts)) {
        checksOnly = checksOnly || argument == QLatin1String("SYNTAX_CHK_ONLY");
        if (argument != QLatin1String("SYNTAX_CHK_ONLY") && argument != QLatin1String("BATCH_MODE"))
          *problem = QStringLiteral("the additional argument %1 is not known").arg(argument);
      }
    } else if (switches.at(i) != QLatin1String("/hidestatusbox")) {
      *problem = QStringLiteral("the switch %1 is not known").arg(switches.at(i));
    }
  }
  if (problem->isEmpty() && !checksOnly)
    *problem = QStringLiteral("this program only checks: it needs /additionalargs SYNTAX_CHK_ONLY");
  return problem->isEmpty();
}

QStringList pointsFiles(const std::string& deck) {
  static const QLatin1String source("FDPWL file=\"");
  QStringList files;
  const QStringList lines = QString::fromStdString(deck).split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    const QString plain = line.trimmed();
    if (plain.compare(QLatin1String(".END"), Qt::CaseInsensitive) == 0)
      break;
    const int start = plain.indexOf(source, 0, Qt::CaseInsensitive);
    if (start < 0 || plain.startsWith(QLatin1Char('*')) || !plain.endsWith(QLatin1Char('"')))
      continue;
    const int path = start + source.size();
    files.append(plain.mid(path, plain.size() - path - 1));
  }
  files.removeDuplicates();
  return files;
}

QVector<Fault> faultsOf(const QString& pointsFile) {
  std::string points;
  QString reason;
  QVector<Fault> faults;
  if (readFile(pointsFile, &points, &reason))
    faults = checkPoints(points, canRead);
  else
    faults.append({FaultNumber::FileUnreadable, 0,
                   QStringLiteral("The file cannot be read: %1.").arg(reason)});
  for (Fault& fault : faults)
    fault.file = QDir::toNativeSeparators(QFileInfo(pointsFile).absoluteFilePath());
  return faults;
}

QString writeMessages(const QString& path, const QByteArray& messages) {
  const QFileInfo old(path); // what it links to is no message file
  const bool isGone = (!old.exists() && !old.isSymLink()) || QFile::remove(path);
  if (!isGone)
    return QStringLiteral("%1 cannot be removed").arg(path);
  if (messages.isEmpty())
    return QString();
  QSaveFile file(path); // all of it or nothing: half a list would pass for the whole
  const bool isWritten =
      file.open(QIODevice::WriteOnly) && file.write(messages) == messages.size() && file.commit();
  return isWritten ? QString()
                   : QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString());
}

} // namespace

QString runCheck(const QStringList& words) {
  if (words.isEmpty())
    return QStringLiteral("no deck was named");
  const QString deckPath = words.last();
  QString problem;
  if (!readSwitches(words.mid(0, words.size() - 1), &problem))
    return problem;
  std::string deck;
  if (!readFile(deckPath, &deck, &problem))
    return QStringLiteral("the deck %1 cannot be read: %2").arg(deckPath, problem);

  QVector<Fault> faults;
  const QStringList files = pointsFiles(deck);
  for (const QString& file : files)
    faults += faultsOf(file);
  if (files.isEmpty())
    faults.append({FaultNumber::DeckHasNoSource, 0,
                   QStringLiteral("The deck has no file-defined source."), deckPath});
  return writeMessages(deckPath + QStringLiteral(".err"), messageFile(faults));
}
