#include "Services/Commands.h"

#include "Call/CommandWords.h"
#include "Call/HostCall.h"
#include "Services/Simulator.h"

namespace {

/// The one command that is the host's own.
constexpr QLatin1String simulatorCommand("RunBRENNIX");

const FunctionInfo& commandOf(const FunctionTable& table, const QString& name) {
  const FunctionInfo* info = table.find(name);
  if (info && info->kind == FunctionInfo::Kind::Command)
    return *info;
  QStringList known{simulatorCommand};
  for (const FunctionInfo& function : table.functions())
    if (function.kind == FunctionInfo::Kind::Command)
      known.append(function.name);
  throw CallError(QStringLiteral("%1: there is no such command; there are: %2")
                      .arg(name, known.join(QStringLiteral(", "))));
}

} // namespace

void runCommand(const FunctionTable& table, const QString& commandLine) {
  const QStringList words = commandWords(commandLine);
  if (words.isEmpty())
    throw CallError(QStringLiteral("command: no command was named"));
  if (words.first() == simulatorCommand)
    runSimulator(words.mid(1));
  else
    callCommand(commandOf(table, words.first()), words.mid(1));
}
