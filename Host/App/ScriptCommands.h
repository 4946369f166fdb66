#pragma once

struct CommandLine;
class FunctionTable;

/// Loads the module that the command line names, else the one beside this program, and tells the
/// host where its help is.
void loadModule(const CommandLine& line, FunctionTable* table);

// The commands that need no window of their own. Each returns the exit status. A module that is not
// what it should be leaves them as a `ModuleError`.

int runScript(const CommandLine& line);     ///< `run` and `eval`
int listFunctions(const CommandLine& line); ///< `list`
