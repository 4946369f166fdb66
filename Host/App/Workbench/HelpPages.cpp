#include "Workbench/HelpPages.h"

#include "Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(HelpPages)
};

/// The first heading of a page, else its file's name.
QString titleOf(const QFileInfo& page) {
  QFile file(page.filePath());
  if (file.open(QIODevice::ReadOnly)) {
    const QString line = QString::fromUtf8(file.readLine()).trimmed();
    if (line.startsWith(QLatin1String("# ")))
      return line.mid(2).trimmed();
  }
  return page.completeBaseName();
}

QString linkTo(const QFileInfo& page) {
  return QStringLiteral("- [%1](%2)\n")
      .arg(titleOf(page),
           QUrl::fromLocalFile(page.absoluteFilePath()).toString(QUrl::FullyEncoded));
}

} // namespace

QString helpDir() {
  return hostDataDir(QStringLiteral("help"));
}

QString helpPage(const QString& function) {
  const QFileInfo page(helpDir() + QLatin1Char('/') + function + QStringLiteral(".md"));
  return page.isFile() ? page.absoluteFilePath() : QString();
}

QString scriptingGuide() {
  return hostDataDir(QStringLiteral("docs")) + QStringLiteral("/scripting.md");
}

QString helpContents() {
  QString text = QStringLiteral("# %1\n\n").arg(Texts::tr("Contents"));
  const QFileInfo guide(scriptingGuide());
  if (guide.isFile())
    text += linkTo(guide) + QLatin1Char('\n');
  text += QStringLiteral("## %1\n\n").arg(Texts::tr("Dialogs"));
  const auto pages =
      QDir(helpDir()).entryInfoList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
  for (const QFileInfo& page : pages)
    text += linkTo(page);
  return text;
}
