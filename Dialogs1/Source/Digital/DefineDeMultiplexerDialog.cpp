#include "Digital/DefineDeMultiplexerDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineDeMultiplexerDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineDeMultiplexerDialog, UserReal>);

DefineDeMultiplexerDialog::DefineDeMultiplexerDialog()
    : DefineMultiplexerDialog("DefineDeMultiplexerDialog") {
  setWindowTitle(tr("Edit Demultiplexer Dialog"));
  form.ioSizeLabel->setText(tr("Number of outputs"));
}
