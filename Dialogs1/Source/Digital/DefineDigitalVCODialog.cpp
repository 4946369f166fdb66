#include "Digital/DefineDigitalVCODialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineDigitalVCODialog", 3, "RRS", RealVectorResult,
                                        runDialogFunction<DefineDigitalVCODialog, UserReal>);

DefineDigitalVCODialog::DefineDigitalVCODialog()
    : DigitalDeviceDialog("DefineDigitalVCODialog", 1, Sides::Outputs) {}
