#pragma once

#include "Core/Frame/Texts.h"
#include "Core/Pwl/EnergyConversion.h"

#include <optional>

/// What the option vector of `PWLDialog` says.
struct PwlOptions {
  enum class InitialCondition { None, Segment, Continuous };

  std::optional<QString> title; ///< not passed: the form's; the headings likewise have standards
  std::optional<QString> xHeading;
  std::optional<QString> yHeading;
  InitialCondition initialCondition = InitialCondition::None; ///< none beside a repeat count
  int helpContext = -1;
  QString helpContextText; ///< as passed; part of what the box is known by
  int leastPoints = 1;
  int mostRows = 256; ///< points, and the blank row below them
  bool offersSymmetric = false;
  bool offersRepeat = false;
  bool isMultiLevel = false;                     ///< of a component with several levels
  EnergyStorage converter = EnergyStorage::None; ///< what the conversion tool is offered for
};

PwlOptions readPwlOptions(const Texts& texts);
