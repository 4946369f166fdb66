#include "Call/FunctionTable.h"
#include "Call/HostApplication.h"
#include "CommandLine.h"
#include "HostSupport/Files.h"
#include "HostSupport/ProcessGroup.h"
#include "HostSupportQt/Text.h"
#include "Output.h"
#include "OwnTempDir.h"
#include "Script/ScriptEngine.h"
#include "ScriptCommands.h"
#include "Startup.h"
#include "Tour/Tour.h"
#include "Workbench/WorkbenchCommand.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>

namespace {

constexpr int statusOfUsage = 2;
constexpr int statusOfBadModule = 2;

/// The words as the user gave them. The window system's application object would take options of
/// its own out of them, those that belong to a script included; this one does not.
std::variant<CommandLine, CommandLineAnswer> readWords(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return readCommandLine(QCoreApplication::arguments());
}

/// Says where options and settings are kept; the folder, where it goes with the program.
std::unique_ptr<QTemporaryDir> settingsOf(const CommandLine& line) {
  if (!line.settingsDir.isEmpty())
    sp_SetSettingsDir(toYs(line.settingsDir));
  if (!line.fresh)
    return nullptr;
  auto folder = std::make_unique<QTemporaryDir>();
  sp_SetSettingsDir(toYs(folder->path()));
  qputenv("XDG_CONFIG_HOME", folder->path().toLocal8Bit()); // what Qt remembers of its choosers
  return folder;
}

std::terminate_handler usualEnd = nullptr;

/// A script may ask in one stroke for more than there is, and the code of the engine lets no
/// exception through.
[[noreturn]] void endUnhandled() {
  try {
    if (const std::exception_ptr fault = std::current_exception())
      std::rethrow_exception(fault);
  } catch (const std::bad_alloc&) {
    std::fputs("dialoghost: there is not enough memory for what the script asks for\n", stderr);
    ProcessGroup::endPresent();
    OwnTempDir::removeBeforeExit();
    std::_Exit(ScriptEngine::statusOfMemory);
  } catch (...) {
    // not ours
  }
  usualEnd();
  std::abort();
}

int obey(const CommandLine& line) {
  switch (line.command) {
  case CommandLine::Command::Workbench:
    return runWorkbench(line);
  case CommandLine::Command::Run:
  case CommandLine::Command::Eval:
    return runScript(line);
  case CommandLine::Command::List:
    return listFunctions(line);
  case CommandLine::Command::Tour:
    return runTour(line);
  }
  return 0;
}

} // namespace

int main(int argc, char** argv) {
  keepBrokenPipes();
  usualEnd = std::set_terminate(endUnhandled);
  const auto words = readWords(argc, argv);
  if (const auto* answer = std::get_if<CommandLineAnswer>(&words)) {
    if (answer->status == 0)
      printLine(answer->text);
    else
      printError(answer->text);
    return exitStatus(answer->status);
  }
  const CommandLine& line = std::get<CommandLine>(words);

  if (lacksDisplayFor(line)) {
    printError(QCoreApplication::translate(
        "CommandLine",
        "dialoghost: there is no display for the workbench. \"dialoghost tour\" takes "
        "pictures without one; see \"dialoghost --help\"."));
    return statusOfUsage;
  }

  const OwnTempDir temporary;
  const std::unique_ptr<QTemporaryDir> freshSettings = settingsOf(line);
  prepareEnvironment(line);
  int programOnly = 1;
  HostApplication application(programOnly, argv);
  prepareApplication();
  try {
    return exitStatus(obey(line));
  } catch (const ModuleError& error) {
    printError(QString::fromUtf8(error.what()));
    return statusOfBadModule;
  }
}
