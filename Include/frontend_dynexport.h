#pragma once

#include "DynFunc.h"
#include "HostSupport/YString.h"

#include <cstdint>

struct GraphEditData; ///< the vectors that can be plotted, and how many graphs are open

/// Shows (1) or hides (0) the host's progress box around a slow step.
inline constexpr DynEntry<void(int show)> dyn_ShowProgressBox{"dyn_ShowProgressBox",
                                                              "Include/frontend_dynexport", 18};
inline constexpr DynEntry<void()> dyn_CreateDialogFunctions{"dyn_CreateDialogFunctions",
                                                            "Include/frontend_dynexport", 22};
inline constexpr DynEntry<void*()> dyn_GetCommandLineData{"dyn_GetCommandLineData",
                                                          "Include/frontend_dynexport", 25};
/// Fills the record with the active graph's vectors.
inline constexpr DynEntry<void(GraphEditData*)> dyn_GetGraphEditData{
    "dyn_GetGraphEditData", "Include/frontend_dynexport", 28};

/// Runs a command of the host, given with its hash, and returns when the run has finished.
inline constexpr DynEntry<void(const YString& command, std::uint32_t hash)> dyn_RunCommand{
    "dyn_RunCommand", "Dialogs1/Source/EditFileDefinedPWLDialog", 184};
