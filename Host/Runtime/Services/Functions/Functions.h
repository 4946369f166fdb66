#pragma once

#include "Call/Provider.h"

// The host's own functions, one file each. Each refuses wrong arguments with a `CallError` that
// names the argument.

// ---- of curves ----------------------------------------------------------------------------------
//
// A curve is a real vector with x values. Numbers are finite, of at most 1e150. The order of
// interpolation is 1, linear.

/// Curve, points, order = 1, [interval, offset]: the curve at `points` x in equal steps. Where
/// `points` is 0, [interval, offset] says where they are; else it plays no part.
CallResult interp(const std::vector<ScriptVector>& arguments);

/// Curve, x, order = 1: y wherever the curve passes x; empty outside.
CallResult yFromX(const std::vector<ScriptVector>& arguments);

/// Curve: its running integral at the same x.
CallResult integ(const std::vector<ScriptVector>& arguments);

/// Curve, segments, kind = "capacitor": the closest curve of so many pieces. `kind` is any text:
/// charge over voltage and flux linkage over current are fitted alike.
CallResult pwlCurveFit(const std::vector<ScriptVector>& arguments);

// ---- of texts, for script expressions -----------------------------------------------------------

/// A function that a script expression may call, always with so many arguments.
struct ExpressionFunction {
  const char* name;
  int arguments;
};

/// A vector: how many elements it has.
inline constexpr ExpressionFunction lengthFunction = {"length", 1};
CallResult length(const std::vector<ScriptVector>& arguments);

/// Text, part: where the part begins, from 0; -1 where the text does not have it.
inline constexpr ExpressionFunction strStrFunction = {"StrStr", 2};
CallResult strStr(const std::vector<ScriptVector>& arguments);

/// Expression, replacements, list, dialect: the expression of the simulator's, without blanks, and
/// with other names for functions that it calls; an empty vector where it does not parse.
/// `replacements` are pairs "from,to" with commas between, `list` is any text, and the dialect
/// "spice".
inline constexpr ExpressionFunction parseSimExpressionFunction = {"ParseSimExpression", 4};
CallResult parseSimExpression(const std::vector<ScriptVector>& arguments);

/// Expression: 1 where it uses a parameter M, else 0, also where it does not parse.
inline constexpr ExpressionFunction testExpressionUsesMFunction = {"_TestExpressionUsesM", 1};
CallResult testExpressionUsesM(const std::vector<ScriptVector>& arguments);
