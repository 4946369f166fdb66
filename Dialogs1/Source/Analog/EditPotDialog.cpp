#include "Analog/EditPotDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditPotDialog", 1, "R", RealVectorResult,
                                        runDialogFunction<EditPotDialog, UserReal>);

EditPotDialog::EditPotDialog() : KelvarinDialog(nullptr, "EditPotDialog", true, {}) {
  form.setupUi(this);
}
