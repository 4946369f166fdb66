#pragma once

#include "Call/FunctionTable.h"

/// "takes 1 to 2 arguments, none was given."; empty where the count is right.
QString wrongArgumentCount(int least, int most, std::size_t count);

/// Refuses a wrong number of arguments with a `CallError` that names the function and its limits.
void checkArgumentCount(const FunctionInfo& function, std::size_t count);

/// Refuses a wrong count or kind of argument with a `CallError` that names the function, the
/// argument, what was expected and what was given.
void checkArguments(const FunctionInfo& function, const std::vector<ScriptVector>& arguments);

/// Runs the function's handler on the GUI thread and takes its result over. Counts and kinds are
/// not checked, beyond what the record can hold (32 arguments): see `checkArguments`. An exception
/// that leaves the handler becomes a `CallError` with its message. The function is taken by value:
/// its table may unload the module meanwhile, which then waits for the end of the call.
CallResult callHandler(FunctionInfo function, const std::vector<ScriptVector>& arguments);

/// Runs a command's handler likewise; `words` are those behind its name.
void callCommand(FunctionInfo command, const QStringList& words);

/// The exception that is being handled, in words: the message of a `KelvarinException` or a
/// standard one, else what it is. To be called in a `catch`.
QString describeException();

/// Lets the running handler's call end with a `CallError` of this message, as if the exception had
/// left the handler: for one that a driver has caught in an event of the handler's dialog. False
/// where no handler runs.
bool raiseWhenHandlerEnds(const QString& message);
