#include "Core/Frame/Integers.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

using Range = std::numeric_limits<int>;

int leadingInteger(const char* text) {
  const long long value = text ? std::strtoll(text, nullptr, 10) : 0;
  return static_cast<int>(std::clamp<long long>(value, Range::min(), Range::max()));
}

std::int32_t leadingWord(const char* text) {
  const char* cursor = text ? text : "";
  while (std::isspace(static_cast<unsigned char>(*cursor)))
    ++cursor;
  const bool isNegative = *cursor == '-';
  if (isNegative || *cursor == '+')
    ++cursor;
  std::uint32_t word = 0; // overflows as the low bits of a larger word do
  for (; *cursor >= '0' && *cursor <= '9'; ++cursor)
    word = word * 10 + static_cast<std::uint32_t>(*cursor - '0');
  return static_cast<std::int32_t>(isNegative ? 0 - word : word);
}

int truncatedToInt(double value) {
  if (std::isnan(value))
    return 0;
  return static_cast<int>(std::clamp<double>(value, Range::min(), Range::max()));
}
