#pragma once

/// How far a counter counts.
struct CounterCount {
  bool isMaximum = true; ///< as far as its bits reach
  double count = 255;
};

/// The highest number of so many bits.
double highestCount(double bits);
/// Whether a count of one's own can be chosen: simulators count in 32 bits, one of them the sign.
bool canChooseCount(double bits);
/// What of `wanted` a counter of so many bits can do.
CounterCount possibleCount(const CounterCount& wanted, double bits);
