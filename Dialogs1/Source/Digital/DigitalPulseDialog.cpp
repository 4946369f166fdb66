#include "Digital/DigitalPulseDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DigitalPulseDialog", 3, "RRS", RealVectorResult,
                                        runDialogFunction<DigitalPulseDialog, UserReal>);
