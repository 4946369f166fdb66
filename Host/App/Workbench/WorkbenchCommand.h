#pragma once

struct CommandLine;

/// Shows the workbench until it is closed; the exit status. Leaves with a `ModuleError` where there
/// is no good module.
int runWorkbench(const CommandLine& line);
