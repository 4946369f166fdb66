#include "Services/Entries/RunCommand.h"

#include "Services/Commands.h"
#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

namespace {

const FunctionTable* commands = nullptr;

CallError failure(const char* reason) {
  return CallError(
      QStringLiteral("%1: %2").arg(QLatin1String(dyn_RunCommand.name), QLatin1String(reason)));
}

} // namespace

void setModuleCommands(const FunctionTable* table) {
  commands = table;
}

CallResult ownRunCommand(const std::vector<ScriptVector>& arguments) {
  if (!commands)
    throw failure("there are no commands");
  runCommand(*commands, textOf(arguments));
  return {};
}

void runCommandEntry(const YString& command, std::uint32_t hash) {
  asEntry([&] {
    if (hash != command.hashValue())
      throw failure("the hash is not that of the command");
    askProvider(dyn_RunCommand.name, textArgument(command));
  });
}
