#pragma once

#include "DynFunc.h"

struct BrennixAnalysisData; ///< the host-owned block of simulator parameters
struct SymbolFileRequest;   ///< what the chooser offers
struct SymbolFileResult;    ///< the chosen names

// Entries that this module serves.

/// Runs the analysis dialog on the caller's block.
inline constexpr DynEntry<void(BrennixAnalysisData*)> dyn_OpenBrennixAnalysisDialog{
    "dyn_OpenBrennixAnalysisDialog", "Include/dialogs1_dynexport", 20};
/// Runs the file chooser for symbol libraries.
inline constexpr DynEntry<void(const SymbolFileRequest&, SymbolFileResult*)> dyn_SymbolFileDialog{
    "dyn_SymbolFileDialog", "Include/dialogs1_dynexport", 23};
