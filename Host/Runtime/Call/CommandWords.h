#pragma once

#include <QStringList>

/// The words of a line. Double quotes keep blanks together; a doubled one inside stands for itself.
/// A backslash is an ordinary character. Raises `CallError` where a quote is not closed.
QStringList commandWords(const QString& line);
