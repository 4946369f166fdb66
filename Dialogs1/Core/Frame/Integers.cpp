#include "Core/Frame/Integers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

using Range = std::numeric_limits<int>;

int leadingInteger(const char* text) {
  const long long value = text ? std::strtoll(text, nullptr, 10) : 0;
  return static_cast<int>(std::clamp<long long>(value, Range::min(), Range::max()));
}

int truncatedToInt(double value) {
  if (std::isnan(value))
    return 0;
  return static_cast<int>(std::clamp<double>(value, Range::min(), Range::max()));
}
