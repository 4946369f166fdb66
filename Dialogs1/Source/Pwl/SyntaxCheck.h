#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/SyntaxMessages.h"
#include "HostSupport/YString.h"

/// What came of having the simulator look at the points of a source. It has not for all but Passed
/// and Faults: the file of the points could not be made, which is not reported; they or the deck
/// could not be written; the folder is not the user's alone; another program keeps its own check in
/// it; or the simulator's messages are there and cannot be read.
enum class SyntaxStatus { NotRun, Passed, Faults, NotWriteable, NotPrivate, Busy, Unreadable };

/// Writes the points and a deck into `folder`, has the host run the simulator on them, and reads
/// what it says. An exception of the host's command is passed on.
SyntaxStatus checkSyntax(const YString& folder, const QString& deviceName, const LineStore& points,
                         SyntaxMessages* messages);
