#include "Core/Digital/DigitalConstant.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/// Digits are worked on in places of several, so that one multiplication does for all of them.
struct Notation {
  unsigned radix;
  std::size_t digitsPerPlace;
  std::uint64_t placeRadix;
};

constexpr Notation decimal{10, 9, 1'000'000'000};
constexpr Notation binary{2, 32, std::uint64_t{1} << 32};
constexpr Notation hexadecimal{16, 8, std::uint64_t{1} << 32};

// In the order of `DigitBase`.
constexpr struct {
  const char* pattern;
  const Notation& notation;
} bases[] = {
    {"[0-9]*", decimal},
    {"[0-1]*", binary},
    {"([0-9]|[a-f]|[A-F])*", hexadecimal},
    {"\\-?[0-9]*", decimal},
};

const Notation& notationOf(DigitBase base) {
  return bases[static_cast<std::size_t>(base)].notation;
}

/// 16 for a character that is no digit.
unsigned digitValue(char digit) {
  if (digit >= '0' && digit <= '9')
    return static_cast<unsigned>(digit - '0');
  const char lower = static_cast<char>(digit | 0x20);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a' + 10) : 16;
}

/// A number apart from its sign, its digits checked and without leading zeros.
struct Magnitude {
  std::string digits;
  bool isNegative = false;
};

Magnitude magnitudeOf(std::string_view digits, DigitBase base) {
  const bool isNegative = base == DigitBase::SignedDecimal && digits.substr(0, 1) == "-";
  digits.remove_prefix(isNegative ? 1 : 0);
  const unsigned radix = notationOf(base).radix;
  const bool isNumber =
      !digits.empty() && std::all_of(digits.begin(), digits.end(),
                                     [radix](char digit) { return digitValue(digit) < radix; });
  return {isNumber ? withoutLeadingZeros(digits) : "0", isNegative};
}

std::uint64_t placeValue(std::string_view digits, unsigned radix) {
  std::uint64_t value = 0;
  for (const char digit : digits)
    value = value * radix + digitValue(digit);
  return value;
}

std::string inNotation(std::string_view digits, const Notation& from, const Notation& to) {
  std::vector<std::uint32_t> places; // the least significant first
  if (from.placeRadix == to.placeRadix) {
    for (std::size_t end = digits.size(); end > 0;) {
      const std::size_t length = std::min(end, from.digitsPerPlace);
      end -= length;
      places.push_back(
          static_cast<std::uint32_t>(placeValue(digits.substr(end, length), from.radix)));
    }
  } else {
    while (!digits.empty()) {
      const std::size_t length = (digits.size() - 1) % from.digitsPerPlace + 1;
      std::uint64_t carry = placeValue(digits.substr(0, length), from.radix);
      digits.remove_prefix(length);
      for (std::uint32_t& place : places) {
        carry += place * from.placeRadix;
        place = static_cast<std::uint32_t>(carry % to.placeRadix);
        carry /= to.placeRadix;
      }
      for (; carry > 0; carry /= to.placeRadix)
        places.push_back(static_cast<std::uint32_t>(carry % to.placeRadix));
    }
  }

  std::string text(places.size() * to.digitsPerPlace, '0');
  auto digit = text.rbegin();
  for (const std::uint32_t place : places) {
    std::uint32_t left = place;
    for (std::size_t i = 0; i < to.digitsPerPlace; ++i, left /= to.radix)
      *digit++ = "0123456789ABCDEF"[left % to.radix];
  }
  return text.empty() ? "0" : withoutLeadingZeros(text);
}

/// Two's complement: a sign bit before at least one more, so that -1 is as wide as 1.
std::string withSignBit(std::string bits, bool isNegative) {
  if (bits == "0")
    return bits;
  if (!isNegative)
    return '0' + bits;
  // Minus n is all bits of n - 1, inverted.
  const std::size_t lowestOne = bits.rfind('1');
  std::fill(bits.begin() + static_cast<std::ptrdiff_t>(lowestOne), bits.end(), '1');
  bits[lowestOne] = '0';
  bits = withoutLeadingZeros(bits);
  for (char& bit : bits)
    bit = bit == '0' ? '1' : '0';
  return '1' + bits;
}

std::string toBinary(const Magnitude& number, DigitBase base) {
  std::string bits = inNotation(number.digits, notationOf(base), binary);
  return base == DigitBase::SignedDecimal ? withSignBit(std::move(bits), number.isNegative) : bits;
}

/// Exact but for a width that is a hair above a whole number: then one less.
std::size_t leastWidth(const Magnitude& number, DigitBase base) {
  constexpr std::size_t exactDigits = 15; // a double holds them all
  constexpr double aHair = 1e-12;
  const std::size_t leading = std::min(number.digits.size(), exactDigits);
  const Notation& notation = notationOf(base);
  const auto value = static_cast<double>(
      placeValue(std::string_view(number.digits).substr(0, leading), notation.radix));
  const double width = std::log2(std::max(value, 1.0)) +
                       std::log2(notation.radix) * double(number.digits.size() - leading);
  const std::size_t signBits = base == DigitBase::SignedDecimal ? 1 : 0;
  return static_cast<std::size_t>(width * (1 - aHair)) + 1 + signBits;
}

} // namespace

const char* digitPattern(DigitBase base) {
  return bases[static_cast<std::size_t>(base)].pattern;
}

std::string withoutLeadingZeros(std::string_view digits) {
  const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
  return std::string(digits.substr(zeros == digits.size() && zeros > 0 ? zeros - 1 : zeros));
}

std::optional<std::string> convertDigits(std::string_view digits, DigitBase from, DigitBase to) {
  const Magnitude number = magnitudeOf(digits, from);
  if (leastWidth(number, from) > widestConstant)
    return std::nullopt;
  std::string bits = toBinary(number, from);
  return to == DigitBase::Binary ? bits : inNotation(bits, binary, notationOf(to));
}

std::size_t bitsNeeded(std::string_view digits, DigitBase base) {
  const Magnitude number = magnitudeOf(digits, base);
  const std::size_t least = leastWidth(number, base);
  return least > widestConstant ? least : toBinary(number, base).size();
}

std::vector<bool> lowestBits(std::string_view digits, DigitBase base, std::size_t count) {
  Magnitude number = magnitudeOf(digits, base);
  // Each digit from the right has a factor of 2 more than the last, in every base: those beyond
  // `count` have no say in so many bits.
  if (number.digits.size() > count)
    number.digits.erase(0, number.digits.size() - count);
  const std::string pattern = number.digits.empty() ? "0" : toBinary(number, base);
  std::vector<bool> bits(count, base == DigitBase::SignedDecimal && pattern.front() == '1');
  for (std::size_t i = 0; i < std::min(count, pattern.size()); ++i)
    bits[i] = pattern[pattern.size() - 1 - i] == '1';
  return bits;
}
