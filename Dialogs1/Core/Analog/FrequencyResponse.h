#pragma once

#include "HostSupport/LaplaceExpression.h"

#include <vector>

/// A Laplace expression as a device has it: s over the scale factor, and a delay in seconds.
struct TransferFunction {
  const LaplaceExpression& expression;
  double frequencyScale = 1; ///< above 0
  double delay = 0;

  /// The value at a frequency in hertz, but for the delay, which only turns its phase.
  /// At a frequency in hertz; `growth`, in the same unit, is how far on the right of the axis.
  std::complex<double> undelayed(double frequency, double growth = 0) const;
};

/// Where frequencies begin and end, in decades of hertz; whole numbers.
struct Decades {
  int first = 0;
  int last = 6;
};

/// The decades around all corners: where the slope or the phase changes. Of a function without
/// any, those around the frequency at which it is 1.
Decades decadesOfInterest(const TransferFunction& function);

/// Magnitude and phase over frequency, ascending. Points without a finite logarithm are left out.
struct FrequencyResponse {
  std::vector<double> frequency; ///< hertz
  std::vector<double> decibels;
  /// Without jumps. It starts where the slope tells it to: three integrators turn by -270.
  std::vector<double> degrees;
};

/// More points where the curves bend, so that the top of a resonance is one of them.
FrequencyResponse frequencyResponse(const TransferFunction& function, const Decades& decades);
