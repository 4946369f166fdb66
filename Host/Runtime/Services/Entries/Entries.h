#pragma once

#include "Call/Provider.h"
#include "externaldialogs.h"
#include "frontend_dynexport.h"
#include "graphimagecapture_dynexport.h"
#include "schematic_dynexport.h"
#include "vecdll_dynexport.h"

// The entries that this host serves, one file each: the C function behind it, which asks the
// provider, and the host's own provider where there is one.

double evaluateExpressionEntry(const YString& expression);
CallResult ownEvaluateExpression(const std::vector<ScriptVector>& arguments);

YString evaluateStringExpressionEntry(const YString& expression);
CallResult ownEvaluateStringExpression(const std::vector<ScriptVector>& arguments);

GlobalSchematicInterface* globalSchematicInterfaceEntry();

void graphEditDataEntry(GraphEditData* data);

void runCommandEntry(const YString& command, std::uint32_t hash);
CallResult ownRunCommand(const std::vector<ScriptVector>& arguments);

bool graphImageCaptureEntry(const GraphImageCaptureRecord& input, GraphImageCaptureRecord* output,
                            KvVector<double>* x, KvVector<double>* y);
CallResult ownGraphImageCapture(const std::vector<ScriptVector>& arguments);

bool openListDialogEntry(QWidget* parent, YArray<YString>* values);
CallResult ownOpenListDialog(const std::vector<ScriptVector>& arguments);

void showProgressBoxEntry(int show);
CallResult ownShowProgressBox(const std::vector<ScriptVector>& arguments);
