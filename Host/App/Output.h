#pragma once

#include <QString>

/// One line of UTF-8 on the standard output, flushed, so that a reader on a pipe follows the
/// script. False where it cannot be written: the first time, an error line says why, unless it is
/// that nobody reads any more.
bool printLine(const QString& line);
/// The same on the standard error output.
void printError(const QString& line);

/// Lets a pipe that nobody reads be a line that cannot be written, not the end of the process.
void keepBrokenPipes();
/// `status`, but 1 for a success whose output could not be written.
int exitStatus(int status);
