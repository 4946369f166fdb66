#pragma once

#include <optional>

/// What kind of device a value box is for; its rows' limits depend on it.
enum class ValueMode { Plain, Switch, Transformer, TransmissionLine, DigitalPulse };

/// The mode of a script's word, in any letter case; any other word, and null, is `Plain`.
ValueMode valueModeOf(const char* word);

/// What a row's spinner differs in from the others.
struct ValueRowRule {
  std::optional<double> min;
  std::optional<double> max;
  /// Set: the row steps by this, without 1-2-5 steps and without engineering notation.
  std::optional<double> plainIncrement;
  double firstStep = 1; ///< else: where the 1-2-5 series begins beside 0
};
ValueRowRule valueRowRule(ValueMode mode, int row);

/// Whether the limits of rows 0 and 1 follow a change of `row`.
bool isLinkedRow(ValueMode mode, int row);

/// What a change of row 0 asks of row 1.
struct ValueRowLink {
  std::optional<double> min;
  std::optional<double> max;
  std::optional<double> value; ///< to be set before the limits
};
ValueRowLink valueRowLink(ValueMode mode, double first, double second);
