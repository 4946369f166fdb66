#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/SyntaxMessages.h"
#include "HostSupport/YString.h"

/// What came of having the simulator look at the points of a source.
enum class SyntaxStatus { Passed, Faults, NotWriteable, NotRun };

/// Writes the points and a deck into `folder`, has the host run the simulator on them, and reads
/// what it says. `NotRun` where the points cannot be written. An exception of the host's command is
/// passed on.
SyntaxStatus checkSyntax(const YString& folder, const QString& deviceName, const LineStore& points,
                         SyntaxMessages* messages);
