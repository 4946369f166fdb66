#include "Digital/DefineArithmeticLogicUnitDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction
    declaration("DefineArithmeticLogicUnitDialog", 2, "RRS", RealVectorResult,
                runDialogFunction<DefineArithmeticLogicUnitDialog, UserReal>);

DefineArithmeticLogicUnitDialog::DefineArithmeticLogicUnitDialog()
    : DigitalDeviceDialog("DefineArithmeticLogicUnitDialog", 1) {
  connect(form.operationGroup, &RadioGroup::clicked, this,
          &DefineArithmeticLogicUnitDialog::updateEnables);
}

void DefineArithmeticLogicUnitDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  // The first field is a choice: the user starts in the one that has been loaded.
  form.operationGroup->buttons()[form.operationGroup->selectedId()]->setFocus();
  updateEnables();
}

void DefineArithmeticLogicUnitDialog::updateEnables() {
  form.shiftOptionsGroup->setEnabled(form.rbShift->isChecked());
}
