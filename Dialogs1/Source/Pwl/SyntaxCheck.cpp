#include "Pwl/SyntaxCheck.h"

#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"
#include "frontend_dynexport.h"

#include <QFile>

KV_DYN_CALL(hostRunCommand, dyn_RunCommand);

static bool writeFile(const QString& path, const QByteArray& contents) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly | QIODevice::Text) &&
         file.write(contents) == contents.size() && file.flush();
}

SyntaxStatus checkSyntax(const YString& folder, const QString& deviceName, const LineStore& points,
                         SyntaxMessages* messages) {
  const auto path = [&folder](const char* name) {
    return toQs(folder) + QLatin1Char('/') + QLatin1String(name);
  };
  const QString deck = path(syntaxDeckFile);
  *messages = SyntaxMessages();
  if (!writeFile(path(syntaxPointsFile), points.joined()))
    return SyntaxStatus::NotRun;
  if (!writeFile(deck, syntaxCheckDeck(deviceName, path(syntaxPointsFile)).toUtf8()))
    return SyntaxStatus::NotWriteable;
  if (hostRunCommand) {
    const YString command = toYs(syntaxCheckCommand(deck));
    hostRunCommand(command, sp_HashValue(command));
  }
  // A simulator that has nothing to say leaves no file.
  QFile file(path(syntaxMessageFile));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
    return SyntaxStatus::Passed;
  *messages = SyntaxMessages(QString::fromUtf8(file.readAll()));
  return SyntaxStatus::Faults;
}
