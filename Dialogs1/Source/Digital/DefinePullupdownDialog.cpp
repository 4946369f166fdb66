#include "Digital/DefinePullupdownDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefinePullupdownDialog", 1, "SRS", StringVectorResult,
                                        runDialogFunction<DefinePullupdownDialog, UserString>);

DefinePullupdownDialog::DefinePullupdownDialog()
    : DigitalDeviceDialog("DefinePullupdownDialog", 1, Sides::Outputs) {}
