#pragma once

#include <QStringList>

/// Runs the simulator as the command "RunBRENNIX" asks for it, `words` being what stands behind the
/// name: switches and, last, the deck. Removes the deck's old message file, DECK.err, and returns
/// when the run has ended.
///
/// Meanwhile windows are painted but take no input. The option "SimulatorProgram" names another
/// program than `brennixcheck` beside the host, with words that go before the others;
/// "SimulatorTimeLimit" is in seconds, 10 where it is not set.
///
/// What the program starts ends with it, and both end with `ProcessGroup::endPresent`.
///
/// Raises `CallError` where no deck is named, while another run is under way, and for a program
/// that is missing, crashes, exceeds the time, is stopped or ends with another status than 0.
void runSimulator(const QStringList& words);
