#include "Digital/DefineCounterDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineCounterDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineCounterDialog, UserReal>);

DefineCounterDialog::DefineCounterDialog(const char* name) : DigitalDeviceDialog(name, 1) {
  showLaterFeatures(false);
  connect(form.numBitsEdit, &Spinner::textChanged, this, &DefineCounterDialog::showPossibleCount);
  connect(form.numBitsEdit, &Spinner::changed, this, &DefineCounterDialog::numBitsEdit_changed);
  connect(form.cbMaxCount, &QCheckBox::clicked, this, &DefineCounterDialog::cbMaxCount_clicked);
  connect(form.maxCountEdit, &Spinner::changed, this, &DefineCounterDialog::maxCountEdit_changed);
}

void DefineCounterDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  cbMaxCount_clicked();
}

void DefineCounterDialog::showLaterFeatures(bool on) {
  setShown({form.featuresGroupBox, form.cbParallelLoad, form.cbUpDown, form.resetDelayEdit,
            form.resetDelayLabel, form.dataLoadTime, form.dataLoadTimeLabel},
           on);
}

void DefineCounterDialog::numBitsEdit_changed() {
  showPossibleCount();
  wanted = {form.cbMaxCount->isChecked(), form.maxCountEdit->value()};
}

void DefineCounterDialog::cbMaxCount_clicked() {
  wanted = {form.cbMaxCount->isChecked(), form.maxCountEdit->value()};
  showPossibleCount();
}

void DefineCounterDialog::maxCountEdit_changed() {
  if (updating)
    return;
  if (form.maxCountEdit->value() < form.maxCountEdit->max)
    form.cbMaxCount->setChecked(false);
  wanted = {form.cbMaxCount->isChecked(), form.maxCountEdit->value()};
}

void DefineCounterDialog::showPossibleCount() {
  const std::optional<double> bits = form.numBitsEdit->number();
  if (!bits)
    return;
  const Updating guard(this);
  const CounterCount shown = possibleCount(wanted, *bits);
  form.cbMaxCount->setChecked(shown.isMaximum);
  form.cbMaxCount->setEnabled(canChooseCount(*bits));
  form.maxCountEdit->setEnabled(!shown.isMaximum);
  form.maxCountEdit->setMax(highestCount(*bits));
  if (shown.isMaximum || !form.maxCountEdit->isExpression())
    form.maxCountEdit->setValue(shown.count);
}
