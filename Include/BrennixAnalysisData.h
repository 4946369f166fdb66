#pragma once

#include "HostSupport/YString.h"

#include <cstddef>
#include <cstdint>

// The analysis block of the switching simulator: the host owns it and all that is in it, and hands
// its address to the module, which edits it in place. The layout is a contract.

/// The kind of a parameter's value.
enum AnalysisParameterType : std::int32_t {
  AnalysisReal = 0,    ///< `value.real`
  AnalysisInteger = 1, ///< `value.integer`
  AnalysisFlag = 2,    ///< `value.byte`
  AnalysisSwitch = 3,  ///< `value.byte`
  AnalysisText = 4,    ///< `text`
  AnalysisIndex = 5,   ///< `value.integer`, the place of a choice among its choices
};

/// One named parameter of the simulator.
struct AnalysisParameter {
  union {
    double real;
    std::int32_t integer;
    std::uint8_t byte;
  } value;
  YString name; ///< compared without regard to case
  YString text;
  std::uint8_t isSet; ///< zero: the simulator's own default applies
  std::uint8_t reserved[3];
  AnalysisParameterType type;
};

static_assert(offsetof(AnalysisParameter, value) == 0);
static_assert(offsetof(AnalysisParameter, name) == 8);
static_assert(offsetof(AnalysisParameter, text) == 16);
static_assert(offsetof(AnalysisParameter, isSet) == 24);
static_assert(offsetof(AnalysisParameter, type) == 28);
static_assert(sizeof(AnalysisParameter) == 32);

/// What a dialog did with the block; on cancel the host finds what it had put there.
enum BrennixAction : std::int32_t { BrennixClose = 0, BrennixRun = 2 };

/// The block: the parameters, and which analyses are chosen.
struct BrennixAnalysisData {
  AnalysisParameter* parameters;
  std::int32_t parameterCount;
  BrennixAction action;
  std::uint8_t tranSelected;
  std::uint8_t acSelected;
  std::uint8_t reserved0[4];
  std::uint8_t popSelected;
  std::uint8_t tranDefined; ///< has been set up, be it selected or not
  std::uint8_t acDefined;
  std::uint8_t reserved1[4];
  std::uint8_t popDefined;
};

static_assert(offsetof(BrennixAnalysisData, parameters) == 0);
static_assert(offsetof(BrennixAnalysisData, parameterCount) == 8);
static_assert(offsetof(BrennixAnalysisData, action) == 12);
static_assert(offsetof(BrennixAnalysisData, tranSelected) == 16);
static_assert(offsetof(BrennixAnalysisData, acSelected) == 17);
static_assert(offsetof(BrennixAnalysisData, popSelected) == 22);
static_assert(offsetof(BrennixAnalysisData, tranDefined) == 23);
static_assert(offsetof(BrennixAnalysisData, acDefined) == 24);
static_assert(offsetof(BrennixAnalysisData, popDefined) == 29);
static_assert(sizeof(BrennixAnalysisData) == 32);
