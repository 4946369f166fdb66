#pragma once

#include "Core/Frame/Words.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Bit patterns of any width, as texts of digits with the most significant one first. A text that is
// no number in its base counts as 0.

enum class DigitBase { Decimal, Binary, Hexadecimal, SignedDecimal };

/// The widest pattern that is converted, in bits: the time grows with the square of the width.
constexpr std::size_t widestConstant = 65536;

/// The names of the bases.
inline constexpr Words<DigitBase> digitBases = {{"DECIMAL", DigitBase::Decimal},
                                                {"BINARY", DigitBase::Binary},
                                                {"HEXADECIMAL", DigitBase::Hexadecimal},
                                                {"SIGNED DECIMAL", DigitBase::SignedDecimal}};

/// Regular expression of what may stand in a field of that base.
const char* digitPattern(DigitBase base);

/// At least one character is left, unless there was none.
std::string withoutLeadingZeros(std::string_view digits);

/// The same pattern in another base, without leading zeros. A signed decimal becomes two's
/// complement with a sign bit in front, which binary digits show; the other way round, a pattern
/// always reads as positive.
/// Nothing where it is wider than `widestConstant`.
std::optional<std::string> convertDigits(std::string_view digits, DigitBase from, DigitBase to);

/// Width of the pattern, in bits, the sign bit of a signed decimal included. Of a decimal beyond
/// `widestConstant` it is what it needs at least, found in a time that does not grow with the
/// width.
std::size_t bitsNeeded(std::string_view digits, DigitBase base);

/// The `count` lowest bits, the least significant one first; above the pattern the sign bit of a
/// signed decimal goes on, and zeros otherwise. Right for patterns of any width; `count` may be
/// `widestConstant` at most.
std::vector<bool> lowestBits(std::string_view digits, DigitBase base, std::size_t count);
