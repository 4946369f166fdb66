#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// The significant digits of a finite value: 0.d1d2d3… * 10^`point`; none for zero.
struct Digits {
  char digit[shortestDigits + 1];
  int count = 0;
  int point = 0;
};

void dropTrailingZeros(Digits* digits) {
  while (digits->count > 0 && digits->digit[digits->count - 1] == '0')
    --digits->count;
}

/// Takes "d.ddde±xx" apart, trailing zeros dropped.
void parseScientific(const char* text, const char* end, Digits* digits) {
  digits->count = 0;
  digits->digit[digits->count++] = *text++;
  if (*text == '.')
    for (++text; *text != 'e'; ++text)
      digits->digit[digits->count++] = *text;
  ++text;
  int exponent = 0;
  std::from_chars(*text == '+' ? text + 1 : text, end, exponent);
  digits->point = exponent + 1;
  dropTrailingZeros(digits);
}

/// Rounds a positive finite value correctly to `wanted` digits. The shortest digits are rounded,
/// which is several times faster than to ask for a precision and the same but for one case: no
/// midpoint of two shorter decimals lies between the value and its shortest digits, but these may
/// be a midpoint themselves while the value is to one side of it.
Digits roundToDigits(double value, int wanted) {
  Digits digits;
  char text[32];
  const char* end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
  parseScientific(text, end, &digits);
  if (digits.count <= wanted)
    return digits;
  if (digits.count == wanted + 1 && digits.digit[wanted] == '5') {
    end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, wanted - 1)
              .ptr;
    parseScientific(text, end, &digits);
    return digits;
  }
  const bool up = digits.digit[wanted] >= '5';
  digits.count = wanted;
  if (up) {
    int last = wanted - 1;
    while (last >= 0 && digits.digit[last] == '9')
      --last;
    if (last < 0) {
      digits.digit[0] = '1';
      ++digits.point;
      last = 0;
    } else {
      ++digits.digit[last];
    }
    digits.count = last + 1;
  }
  dropTrailingZeros(&digits);
  return digits;
}

char* writeText(char* out, const char* text) {
  while (*text)
    *out++ = *text++;
  return out;
}

/// The digits with their point behind the `point`-th, which may lie outside them.
char* writePointed(char* out, const Digits& digits, int point) {
  int next = 0;
  if (point <= 0)
    *out++ = '0';
  for (; next < point; ++next)
    *out++ = next < digits.count ? digits.digit[next] : '0';
  if (next < digits.count) {
    *out++ = '.';
    for (int zero = point; zero < 0; ++zero)
      *out++ = '0';
    while (next < digits.count)
      *out++ = digits.digit[next++];
  }
  return out;
}

char* writeWithExponent(char* out, const Digits& digits) {
  out = writePointed(out, digits, 1);
  *out++ = 'e';
  return std::to_chars(out, out + 8, digits.point - 1).ptr;
}

constexpr const char* suffixes[] = {"a", "f", "p", "n", "u", "m", "", "k", "Meg", "G", "T"};
constexpr int lowestSuffixExponent = -18;
constexpr int highestSuffixExponent = 12;

char* writeEngDigits(char* out, const Digits& digits) {
  const int exponent = digits.point - 1;
  if (exponent < lowestSuffixExponent || exponent >= highestSuffixExponent + 3)
    return writeWithExponent(out, digits);
  const int group = (exponent - lowestSuffixExponent) / 3;
  out = writePointed(out, digits, digits.point - (lowestSuffixExponent + 3 * group));
  return writeText(out, suffixes[group]);
}

// Digits before and behind the point, but for the lone 0 before it.
int placesOf(const Digits& digits) {
  return std::max(digits.point, 0) + std::max(digits.count - digits.point, 0);
}

template <class WriteDigits>
int writeReal(double value, int significantDigits, char* buffer, WriteDigits writeDigits) {
  char* out = buffer;
  if (std::isnan(value)) {
    out = writeText(out, "nan");
  } else if (value == 0) {
    out = writeText(out, "0"); // a negative zero as well
  } else {
    if (value < 0)
      *out++ = '-';
    value = std::fabs(value);
    if (std::isinf(value))
      out = writeText(out, "inf");
    else
      out =
          writeDigits(out, roundToDigits(value, std::clamp(significantDigits, 1, shortestDigits)));
  }
  *out = '\0';
  return static_cast<int>(out - buffer);
}

} // namespace

int writeEng(double value, int significantDigits, char* buffer) {
  return writeReal(value, significantDigits, buffer, writeEngDigits);
}

int writePlain(double value, int significantDigits, int places, char* buffer) {
  return writeReal(value, significantDigits, buffer, [places](char* out, const Digits& digits) {
    return placesOf(digits) <= places ? writePointed(out, digits, digits.point)
                                      : writeWithExponent(out, digits);
  });
}
