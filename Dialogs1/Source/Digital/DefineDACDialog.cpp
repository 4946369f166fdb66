#include "Digital/DefineDACDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineDACDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineDACDialog, UserReal>);

DefineDACDialog::DefineDACDialog() : DigitalDeviceDialog("DefineDACDialog", 1, Sides::Inputs) {}
