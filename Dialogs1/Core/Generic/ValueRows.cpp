#include "Core/Generic/ValueRows.h"

#include "Core/Frame/Words.h"

namespace {

// Times and impedances have to be above zero; these are the least that a simulation can tell from
// it.
constexpr double firstTime = 1e-9;
constexpr double leastTime = 1e-18;
constexpr double leastImpedance = 1e-18;
constexpr double leastDelay = 1e-21;
constexpr double leastInductance = 1e-18;
constexpr double unlimitedWidth = 1e18;

constexpr Words<ValueMode> modeWords = {
    {"Switch", ValueMode::Switch},
    {"Transformer", ValueMode::Transformer},
    {"TransmissionLine", ValueMode::TransmissionLine},
    {"DigitalPulse", ValueMode::DigitalPulse},
};

} // namespace

ValueMode valueModeOf(const char* word) {
  return modeWords.read(word, ValueMode::Plain);
}

ValueRowRule valueRowRule(ValueMode mode, int row) {
  static const struct {
    ValueMode mode;
    int row;
    ValueRowRule rule;
  } rules[] = {
      {ValueMode::Transformer, 0, {leastInductance, {}, {}}},
      {ValueMode::Transformer, 1, {leastInductance, {}, {}}},
      {ValueMode::Transformer, 2, {0.0, 1.0, 0.05}}, // a coupling factor
      {ValueMode::TransmissionLine, 0, {leastImpedance, {}, {}}},
      {ValueMode::TransmissionLine, 1, {leastDelay, {}, {}, firstTime}},
      {ValueMode::DigitalPulse, 0, {0.0, {}, {}, firstTime}},
      {ValueMode::DigitalPulse, 1, {leastTime, {}, {}, firstTime}},
      {ValueMode::DigitalPulse, 2, {0.0, {}, {}, firstTime}},
  };
  for (const auto& entry : rules)
    if (entry.mode == mode && entry.row == row)
      return entry.rule;
  return {};
}

bool isLinkedRow(ValueMode mode, int row) {
  return (row == 0 && (mode == ValueMode::Switch || mode == ValueMode::DigitalPulse)) ||
         (row == 1 && mode == ValueMode::Switch);
}

ValueRowLink valueRowLink(ValueMode mode, double first, double second) {
  ValueRowLink link;
  if (mode == ValueMode::Switch) {
    link.min = first;
  } else if (mode == ValueMode::DigitalPulse) {
    if (first > 0 && second > first)
      link.value = first;
    link.max = first > 0 ? first : unlimitedWidth;
  }
  return link;
}
