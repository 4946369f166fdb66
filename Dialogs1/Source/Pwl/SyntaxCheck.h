#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/SyntaxMessages.h"
#include "HostSupport/YString.h"

/// What came of having the simulator look at the points of a source. All but the first two say that
/// it has not: the folder cannot be written to, or is not the user's alone, or another program
/// keeps its own check in it; or the simulator's messages are there and cannot be read.
enum class SyntaxStatus { Passed, Faults, NotWriteable, NotPrivate, Busy, Unreadable };

/// Writes the points and a deck into `folder`, has the host run the simulator on them, and reads
/// what it says. An exception of the host's command is passed on.
SyntaxStatus checkSyntax(const YString& folder, const QString& deviceName, const LineStore& points,
                         SyntaxMessages* messages);
