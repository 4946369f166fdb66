#pragma once

#include "Call/Exceptions.h"
#include "Call/FunctionTable.h"

#include <functional>

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

/// Runs a call of an entry that a module serves likewise.
void callEntry(const QString& name, const std::function<void()>& call);

/// Lets the running handler's call end with a `CallError` of this message, as if the exception had
/// left the handler: for one that was caught in an event of the handler's dialog. The first one
/// counts. False where no handler runs.
bool raiseWhenHandlerEnds(const QString& message);
/// Whether the running handler's call is to end so.
bool isExceptionPending();
/// How many handlers run inside one another.
int callDepth();
