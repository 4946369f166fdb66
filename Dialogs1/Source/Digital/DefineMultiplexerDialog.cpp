#include "Digital/DefineMultiplexerDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineMultiplexerDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineMultiplexerDialog, UserReal>);

DefineMultiplexerDialog::DefineMultiplexerDialog(const char* name) : DigitalDeviceDialog(name, 1) {}
