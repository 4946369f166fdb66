#pragma once

#include "Core/Analog/Waveform.h"

#include <vector>

/// What a picture of a waveform is made from. What an expression hides is not there.
struct WaveSettings {
  WaveShape shape = WaveShape::Square;
  /// By `WaveField`. Those that a shape does not use may be anything.
  std::array<std::optional<double>, waveFieldCount> timing;
  std::optional<double> delay; ///< in seconds, or in degrees where it is a phase
  std::optional<double> damping;
  bool isPhase = false;
  bool isOffUntilDelay = false;
  std::optional<double> initial, pulse;

  explicit WaveSettings(const WaveTiming& from);

  const std::optional<double>& operator[](WaveField field) const {
    return timing[std::size_t(field)];
  }
};

/// A waveform over time, in points that straight lines join.
struct WaveCurve {
  enum class Lack {
    None,
    Hidden,     ///< an expression hides what the picture needs
    NoFrequency ///< nothing repeats with a frequency of 0, or one that no number tells
  };

  Lack lack = Lack::None;
  std::vector<double> x, y;
};

/// Two periods, with a bit of what is before a delay until which the source is off; of a single
/// shape all of it, from before its delay to after its end. Phases lead: with one of 90 degrees a
/// sine starts at its top. Damping counts from the delay on.
WaveCurve waveCurve(const WaveSettings& settings);
