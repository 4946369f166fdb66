#include "dialogs1_dynexport.h"
#include "frontend_dynexport.h"
#include "graphimagecapture_dynexport.h"

// Entries that the host expects this module to import, though no dialog calls them.
KV_DYN_CALL(createDialogFunctions, dyn_CreateDialogFunctions);
KV_DYN_CALL(getCommandLineData, dyn_GetCommandLineData);
KV_DYN_CALL(graphImageCaptureBasic, dyn_GraphImageCaptureBasic);

// Those that this module serves have a slot in it as well.
KV_DYN_CALL(openAnalysisDialog, dyn_OpenBrennixAnalysisDialog);
KV_DYN_CALL(symbolFileDialog, dyn_SymbolFileDialog);
