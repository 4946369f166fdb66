#pragma once

#include <cstdint>

/// The whole number that a text begins with, blanks skipped: decimal, 0 where none stands, the
/// nearest end of the range where it does not fit. Null counts as empty.
int leadingInteger(const char* text);

/// The lowest 32 bits of the whole number that a text begins with, however large it is: for words
/// of flags and colours, where each bit has a meaning of its own.
std::int32_t leadingWord(const char* text);

/// A number cut towards zero; the nearest end of the range where it does not fit, 0 for NaN.
int truncatedToInt(double value);
