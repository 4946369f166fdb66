#include "frontend_dynexport.h"
#include "graphimagecapture_dynexport.h"

// Entries that the host expects this module to import, though no dialog calls them.
KV_DYN_CALL(createDialogFunctions, dyn_CreateDialogFunctions);
KV_DYN_CALL(getCommandLineData, dyn_GetCommandLineData);
KV_DYN_CALL(graphImageCaptureBasic, dyn_GraphImageCaptureBasic);
