#include "Core/Digital/CounterCount.h"

#include <algorithm>
#include <cmath>

double highestCount(double bits) {
  return std::exp2(bits) - 1;
}

bool canChooseCount(double bits) {
  return bits <= 31;
}

CounterCount possibleCount(const CounterCount& wanted, double bits) {
  const double highest = highestCount(bits);
  if (wanted.isMaximum || !canChooseCount(bits))
    return {true, highest};
  return {false, std::min(wanted.count, highest)};
}
