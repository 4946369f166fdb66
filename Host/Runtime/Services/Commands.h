#pragma once

#include "Call/FunctionTable.h"

/// Runs a command: the first word names it, the rest are its words. "RunBRENNIX" is the host's own
/// (see `runSimulator`), all others are those of the table. Raises `CallError`.
void runCommand(const FunctionTable& table, const QString& commandLine);
