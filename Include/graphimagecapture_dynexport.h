#pragma once

#include "DynFunc.h"
#include "HostSupport/Containers.h"
#include "HostSupport/YString.h"

#include <cstdint>

/// Which picture is to be digitised; as an output, what the user settled besides the points. What
/// the words and numbers mean is the digitiser's affair: a module passes a fresh record.
struct GraphImageCaptureRecord {
  YString picture; ///< path of the file
  std::uint64_t words[4] = {};
  std::int32_t numbers[3] = {-1, 2, 2};
};

/// Lets the user take points from a picture of a graph; false when they gave up.
inline constexpr DynEntry<bool(const GraphImageCaptureRecord& input,
                               GraphImageCaptureRecord* output, KvVector<double>* x,
                               KvVector<double>* y)>
    dyn_GraphImageCapture{"dyn_GraphImageCapture", "Include/graphimagecapture_dynexport", 36};
inline constexpr DynEntry<bool(const GraphImageCaptureRecord& input, KvVector<double>* x,
                               KvVector<double>* y)>
    dyn_GraphImageCaptureBasic{"dyn_GraphImageCaptureBasic", "Include/graphimagecapture_dynexport",
                               37};
