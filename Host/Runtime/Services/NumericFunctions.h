#pragma once

#include "Call/Provider.h"

/// The host's own numeric functions: "interp", "YFromX", "integ" and "PWLCurveFit"; empty for any
/// other name. Each refuses wrong arguments with a `CallError` that names the argument.
///
/// | Function | Arguments | Result |
/// |---|---|---|
/// | interp | curve, points, order = 1, [interval, offset] | the curve at `points` x in equal steps
/// | | YFromX | curve, x, order = 1 | y wherever the curve passes x; empty outside | | integ |
/// curve | its running integral at the same x | | PWLCurveFit | curve, segments, kind = "capacitor"
/// | the closest curve of so many pieces |
///
/// A curve is a real vector with x values. Numbers are finite, of at most 1e150. The order of
/// interpolation is 1, linear. Where `points` is 0, [interval, offset] says where the points of
/// "interp" are; else it plays no part. `kind` is any text: charge over voltage and flux linkage
/// over current are fitted alike.
Provider numericFunction(const QString& name);
