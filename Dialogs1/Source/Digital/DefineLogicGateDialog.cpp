#include "Digital/DefineLogicGateDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineLogicGateDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineLogicGateDialog, UserReal>);

DefineLogicGateDialog::DefineLogicGateDialog() : DigitalDeviceDialog("DefineLogicGateDialog", 1) {}

DefineLogicGateDialog::DefineLogicGateDialog(const char* name) : DigitalDeviceDialog(name) {}
