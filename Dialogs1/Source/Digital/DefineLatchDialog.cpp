#include "Digital/DefineLatchDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineLatchDialog", 2, "RSRS", RealVectorResult,
                                        runDialogFunction<DefineLatchDialog, UserReal>);

void DefineLatchDialog::initialiseDialog() {
  showTitle(1);
  KelvarinDialog::initialiseDialog();
}
