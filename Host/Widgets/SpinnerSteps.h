#pragma once

// The arithmetic of a spinner's arrows. It works on decimal digits, so that no rounding error of
// the binary representation ever shows.

/// How a 1-2-5 series goes through zero.
struct SeriesLimits {
  double fromZero = 1.0;   ///< first magnitude beside zero
  double smallest = 1e-18; ///< a step towards zero that gets below it is zero
};

/// The next number of the series ... 0.1 0.2 0.5 1 2 5 ... above or below `value`; negative numbers
/// mirror the positive ones.
double nextInSeries(double value, bool up, const SeriesLimits& limits = {});

/// `value` a decade further from zero, or nearer to it, in the direction of the step.
double nextDecade(double value, bool up, const SeriesLimits& limits = {});

/// `value + count * increment`, on the decimal grid of the two.
double plainStep(double value, double increment, int count);
