#include "Digital/DefineCounterDialog_V2.h"

#include "Frame/ScriptFunction.h"

// Three arguments: the data load setup time, which is bound to a fourth, always starts anew.
static const ScriptFunction declaration("DefineCounterDialog_V2", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineCounterDialog_V2, UserReal>);

DefineCounterDialog_V2::DefineCounterDialog_V2() : DefineCounterDialog("DefineCounterDialog_V2") {
  showLaterFeatures(true);
  form.numBitsEdit->setMax(256);
  connect(form.resetRadioGroup, &RadioGroup::clicked, this, &DefineCounterDialog_V2::updateEnables);
  connect(form.cbParallelLoad, &QCheckBox::clicked, this, &DefineCounterDialog_V2::updateEnables);
}

void DefineCounterDialog_V2::initialiseDialog() {
  DefineCounterDialog::initialiseDialog();
  updateEnables();
}

void DefineCounterDialog_V2::updateEnables() {
  form.resetDelayEdit->setEnabled(form.resetRadioGroup->selectedId() != 0);
  form.dataLoadTime->setEnabled(form.cbParallelLoad->isChecked());
}
