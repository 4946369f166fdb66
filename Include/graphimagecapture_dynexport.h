#pragma once

#include "DynFunc.h"

struct GraphImageCaptureInput;  ///< which picture, and what is asked of the user
struct GraphImageCaptureOutput; ///< what the user settled besides the points

/// Lets the user take points from a picture of a graph; false when they gave up.
inline constexpr DynEntry<bool(const GraphImageCaptureInput&, GraphImageCaptureOutput*,
                               KvVector<double>* x, KvVector<double>* y)>
    dyn_GraphImageCapture{"dyn_GraphImageCapture", "Include/graphimagecapture_dynexport", 36};
inline constexpr DynEntry<bool(const GraphImageCaptureInput&, KvVector<double>* x,
                               KvVector<double>* y)>
    dyn_GraphImageCaptureBasic{"dyn_GraphImageCaptureBasic", "Include/graphimagecapture_dynexport",
                               37};
