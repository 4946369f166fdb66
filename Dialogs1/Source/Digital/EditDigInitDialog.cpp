#include "Digital/EditDigInitDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditDigInitDialog", 1, "R", RealVectorResult,
                                        runDialogFunction<EditDigInitDialog, UserReal>);

EditDigInitDialog::EditDigInitDialog() : KelvarinDialog(nullptr, "EditDigInitDialog", true, {}) {
  form.setupUi(this);
}

void EditDigInitDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  // The user starts at what is chosen.
  (form.radioButton2->isChecked() ? form.radioButton2 : form.radioButton1)
      ->setFocus(Qt::TabFocusReason);
}
