#include "Services/ModuleEntries.h"

#include "Call/HostCall.h"
#include "dialogs1_dynexport.h"

namespace {

KV_DYN_CALL(analysisDialog, dyn_OpenBrennixAnalysisDialog);
KV_DYN_CALL(symbolFileDialog, dyn_SymbolFileDialog);

} // namespace

void openAnalysisDialog(BrennixAnalysisData* block) {
  callEntry(QLatin1String(dyn_OpenBrennixAnalysisDialog.name), [&] { analysisDialog(block); });
}

void chooseSymbolFiles(const SymbolFileRequest& request, SymbolFileResult* result) {
  callEntry(QLatin1String(dyn_SymbolFileDialog.name), [&] { symbolFileDialog(request, result); });
}
