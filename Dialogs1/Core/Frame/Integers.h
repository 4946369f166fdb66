#pragma once

/// The whole number that a text begins with, blanks skipped: decimal, 0 where none stands, the
/// nearest end of the range where it does not fit. Null counts as empty.
int leadingInteger(const char* text);

/// A number cut towards zero; the nearest end of the range where it does not fit, 0 for NaN.
int truncatedToInt(double value);
