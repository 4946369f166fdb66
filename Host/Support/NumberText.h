#pragma once

// Numbers as text, into buffers of `numberTextCapacity`. Each returns the length; terminated. At
// most `significantDigits` (1 to 17) are written, without trailing zeros.

/// As many digits as it takes to read the same value back.
constexpr int shortestDigits = 17;
constexpr int numberTextCapacity = 40;

/// With an engineering suffix, or an exponent where none reaches.
int writeEng(double value, int significantDigits, char* buffer);
/// Without a suffix: plain digits where at most `places` are needed, else with an exponent.
int writePlain(double value, int significantDigits, int places, char* buffer);
