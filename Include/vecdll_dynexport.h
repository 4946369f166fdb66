#pragma once

#include "DynFunc.h"

/// Value of a script expression. May raise.
inline constexpr DynEntry<double(const YString& expression)> dyn_EvaluateExpression{
    "dyn_EvaluateExpression", "Include/vecdll_dynexport", 17};
/// Text of a script expression. May raise.
inline constexpr DynEntry<YString(const YString& expression)> dyn_EvaluateStringExpression{
    "dyn_EvaluateStringExpression", "Include/vecdll_dynexport", 20};
