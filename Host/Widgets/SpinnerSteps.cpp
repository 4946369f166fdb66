#include "SpinnerSteps.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double largest = std::numeric_limits<double>::max();
// Enough for every double in fixed notation.
using Buffer = std::array<char, 800>;

double parse(const char* begin, const char* end) {
  double value = 0;
  const auto result = std::from_chars(begin, end, value);
  // What is beyond a double: too small is zero, and no step makes it too large but at the very end.
  if (result.ec == std::errc::result_out_of_range)
    return std::memchr(begin, '-', static_cast<std::size_t>(end - begin)) ? 0 : largest;
  return value;
}

/// A positive number as `digits` (the point behind the first) times ten to the `exponent`.
struct Decimal {
  std::array<char, 20> digits{};
  int count = 0;
  int exponent = 0;

  explicit Decimal(double value, int precision = -1) {
    Buffer text;
    const auto written = precision < 0
                             ? std::to_chars(text.data(), text.data() + text.size(), value,
                                             std::chars_format::scientific)
                             : std::to_chars(text.data(), text.data() + text.size(), value,
                                             std::chars_format::scientific, precision - 1);
    const char* cursor = text.data();
    for (; cursor != written.ptr && *cursor != 'e'; ++cursor)
      if (*cursor != '.')
        digits[static_cast<std::size_t>(count++)] = *cursor;
    while (count > 1 && digits[static_cast<std::size_t>(count - 1)] == '0')
      --count;
    if (cursor != written.ptr)
      ++cursor; // the 'e'
    if (cursor != written.ptr && *cursor == '+')
      ++cursor;
    std::from_chars(cursor, written.ptr, exponent);
  }

  double value() const {
    Buffer text;
    char* cursor = text.data();
    *cursor++ = digits[0];
    *cursor++ = '.';
    for (int i = 1; i < count; ++i)
      *cursor++ = digits[static_cast<std::size_t>(i)];
    *cursor++ = 'e';
    cursor = std::to_chars(cursor, text.data() + text.size(), exponent).ptr;
    return parse(text.data(), cursor);
  }

  int decimals() const { return std::max(0, count - 1 - exponent); }
};

/// Takes the traces of earlier binary arithmetic (0.30000000000000004) off a positive number.
Decimal tidied(double value) {
  constexpr int reliableDigits = 15;
  constexpr int shortCount = 13;
  const Decimal rounded(value, reliableDigits);
  return rounded.count <= shortCount ? rounded : Decimal(value);
}

double seriesNumber(char digit, int exponent) {
  Decimal number(1.0);
  number.digits[0] = digit;
  number.exponent = exponent;
  return number.value();
}

double seriesAbove(double value) {
  const Decimal number = tidied(value);
  if (number.digits[0] < '2')
    return seriesNumber('2', number.exponent);
  if (number.digits[0] < '5')
    return seriesNumber('5', number.exponent);
  return seriesNumber('1', number.exponent + 1);
}

double seriesBelow(double value) {
  const Decimal number = tidied(value);
  const bool exact = number.count == 1;
  const char digit = number.digits[0];
  if (digit > '5' || (digit == '5' && !exact))
    return seriesNumber('5', number.exponent);
  if (digit > '2' || (digit == '2' && !exact))
    return seriesNumber('2', number.exponent);
  if (digit > '1' || !exact)
    return seriesNumber('1', number.exponent);
  return seriesNumber('5', number.exponent - 1);
}

double decadeShift(double value, int decades) {
  Decimal number = tidied(value);
  number.exponent += decades;
  return number.value();
}

/// Carries steps of positive magnitudes through zero and to the negative side.
template <typename Away, typename Towards>
double mirrored(double value, bool up, const SeriesLimits& limits, Away away, Towards towards) {
  const double sign = up ? 1 : -1;
  if (value == 0)
    return sign * (limits.fromZero > 0 && std::isfinite(limits.fromZero) ? limits.fromZero : 1.0);
  const double magnitude = std::fabs(value);
  if ((value > 0) == up)
    return sign * away(magnitude);
  const double nearer = towards(magnitude);
  return nearer < limits.smallest ? 0.0 : -sign * nearer;
}

} // namespace

double nextInSeries(double value, bool up, const SeriesLimits& limits) {
  return std::isfinite(value) ? mirrored(value, up, limits, seriesAbove, seriesBelow) : value;
}

double nextDecade(double value, bool up, const SeriesLimits& limits) {
  const auto away = [](double magnitude) { return decadeShift(magnitude, 1); };
  const auto towards = [](double magnitude) { return decadeShift(magnitude, -1); };
  return std::isfinite(value) ? mirrored(value, up, limits, away, towards) : value;
}

double plainStep(double value, double increment, int count) {
  if (!std::isfinite(value) || !std::isfinite(increment) || count == 0)
    return value;
  const Decimal from = tidied(std::fabs(value));
  const Decimal step = tidied(std::fabs(increment));
  const double sum = std::copysign(from.value(), value) +
                     std::copysign(step.value(), increment) * static_cast<double>(count);
  if (!std::isfinite(sum))
    return std::copysign(largest, sum);
  Buffer text;
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), sum, std::chars_format::fixed,
                    std::max(from.decimals(), step.decimals()));
  return written.ec == std::errc() ? parse(text.data(), written.ptr) + 0.0 : sum;
}
