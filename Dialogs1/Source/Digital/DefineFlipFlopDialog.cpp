#include "Digital/DefineFlipFlopDialog.h"

#include "Frame/ScriptFunction.h"

#include <algorithm>

static const ScriptFunction declaration("DefineFlipFlopDialog", 2, "RSRS", RealVectorResult,
                                        runDialogFunction<DefineFlipFlopDialog, UserReal>);

namespace {

/// What is being typed has not met its limits yet.
double valueOf(const Spinner* edit) {
  return std::max(edit->value(), edit->min);
}

/// The value of an expression is not known here, and no warning can follow from it.
bool areKnown(const Spinner* one, const Spinner* other) {
  return !one->isExpression() && !other->isExpression();
}

} // namespace

DefineFlipFlopDialog::DefineFlipFlopDialog() : DigitalDeviceDialog("DefineFlipFlopDialog", 2) {
  // Each warning comes with the first change of its times: a box that opens without any is silent.
  form.holdTimeViolationLabel->hide();
  form.clockDelayViolationLabel->hide();
  const auto typed = &Spinner::textChanged;
  connect(form.holdTimeEdit, typed, this, &DefineFlipFlopDialog::showHoldTimeViolation);
  connect(form.clockDelayEdit, typed, this, &DefineFlipFlopDialog::showClockDelayViolation);
  connect(form.minClockEdit, typed, this, &DefineFlipFlopDialog::showHoldTimeViolation);
  connect(form.minClockEdit, typed, this, &DefineFlipFlopDialog::showClockDelayViolation);
}

void DefineFlipFlopDialog::initialiseDialog() {
  showTitle(1);
  KelvarinDialog::initialiseDialog();
}

void DefineFlipFlopDialog::showHoldTimeViolation() {
  form.holdTimeViolationLabel->setVisible(areKnown(form.holdTimeEdit, form.minClockEdit) &&
                                          valueOf(form.holdTimeEdit) >= valueOf(form.minClockEdit));
}

void DefineFlipFlopDialog::showClockDelayViolation() {
  form.clockDelayViolationLabel->setVisible(areKnown(form.minClockEdit, form.clockDelayEdit) &&
                                            valueOf(form.minClockEdit) >
                                                valueOf(form.clockDelayEdit));
}
