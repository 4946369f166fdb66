#pragma once

struct BrennixAnalysisData;
struct SymbolFileRequest;
struct SymbolFileResult;

// The entries that the module serves to the host. Raise `CallError`: where no module serves the
// entry, and for an exception that leaves it.

void openAnalysisDialog(BrennixAnalysisData* block);
void chooseSymbolFiles(const SymbolFileRequest& request, SymbolFileResult* result);
