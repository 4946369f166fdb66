#pragma once

/// As many digits as it takes to read the same value back.
constexpr int shortestDigits = 17;
constexpr int numberTextCapacity = 40;

/// Writes `value` without a suffix at most at `significantDigits`, with an exponent where plain
/// digits would take too many places. Returns the length; terminated.
int writePlain(double value, int significantDigits, char* buffer);
