#include "Digital/DefineFlipFlopDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/Colours.h"

#include <QEvent>

static const ScriptFunction declaration("DefineFlipFlopDialog", 2, "RSRS", RealVectorResult,
                                        runDialogFunction<DefineFlipFlopDialog, UserReal>);

DefineFlipFlopDialog::DefineFlipFlopDialog() : DigitalDeviceDialog("DefineFlipFlopDialog", 2) {
  // Each warning comes with the first change of its times: a box that opens without any is silent.
  setShown({form.holdTimeViolationLabel, form.clockDelayViolationLabel}, false);
  colourWarnings();
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

void DefineFlipFlopDialog::changeEvent(QEvent* event) {
  DigitalDeviceDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    colourWarnings();
}

void DefineFlipFlopDialog::colourWarnings() {
  QPalette warning;
  warning.setColor(QPalette::WindowText, sp_WrongColour(palette().color(QPalette::Window)));
  for (QLabel* label : {form.holdTimeViolationLabel, form.clockDelayViolationLabel})
    label->setPalette(warning);
}

void DefineFlipFlopDialog::showHoldTimeViolation() {
  const auto hold = form.holdTimeEdit->number();
  const auto clock = form.minClockEdit->number();
  form.holdTimeViolationLabel->setVisible(hold && clock && *hold >= *clock);
}

void DefineFlipFlopDialog::showClockDelayViolation() {
  const auto delay = form.clockDelayEdit->number();
  const auto clock = form.minClockEdit->number();
  form.clockDelayViolationLabel->setVisible(delay && clock && *clock > *delay);
}
