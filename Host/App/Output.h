#pragma once

#include <QString>

/// One line of UTF-8 on the standard output, flushed, so that a reader on a pipe follows the
/// script.
void printLine(const QString& line);
/// The same on the standard error output.
void printError(const QString& line);
