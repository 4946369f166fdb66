#pragma once

#include <QStringList>

#include <optional>
#include <variant>

/// What the program was asked to do.
struct CommandLine {
  enum class Command { Workbench, Run, Eval, List, Tour };

  Command command = Command::Workbench;
  QString moduleFile;         ///< absolute; empty: the module beside this program
  QString settingsDir;        ///< absolute; empty: the platform's usual place
  bool fresh = false;         ///< empty settings, which end with the program
  QString script;             ///< the file of Run, the text of Eval
  QStringList words;          ///< what follows the file of Run; the names of Tour
  std::optional<int> timeout; ///< seconds; 0: never
  std::optional<int> memory;  ///< MB; 0: any amount
  bool json = false;          ///< of List
  QString outDir;             ///< of Tour; empty: the default
  bool dark = false;          ///< of Tour: dark pictures as well
  int scale = 1;              ///< of Tour: device pixel ratio
  QString screenshot;         ///< of Workbench: picture to take before it ends
};

/// A command line that is answered with a text alone: help, or what is wrong with it.
struct CommandLineAnswer {
  int status = 0; ///< 0, or 2 for a wrong command line
  QString text;
};

/// Reads all words of the command line, the program's name first. Wants a `QCoreApplication`.
std::variant<CommandLine, CommandLineAnswer> readCommandLine(const QStringList& words);
