#include "Digital/DefineShiftRegDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineShiftRegDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineShiftRegDialog, UserReal>);
