#pragma once

#include <QStringList>

/// A run as a command line asks for it:
///
///     /hidestatusbox /additionalargs SYNTAX_CHK_ONLY,,BATCH_MODE,, DECK
///
/// Checks the points file of each file-defined source in the deck, and writes DECK.err where there
/// are faults; else there is none. Paths are relative to the current folder. Gives the empty text,
/// or in a sentence why the run could not be made.
QString runCheck(const QStringList& words);
