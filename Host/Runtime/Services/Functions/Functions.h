#pragma once

#include "Call/Provider.h"

// The host's own numeric functions, one file each. Each refuses wrong arguments with a `CallError`
// that names the argument.
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
