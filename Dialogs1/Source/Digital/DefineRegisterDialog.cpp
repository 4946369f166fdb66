#include "Digital/DefineRegisterDialog.h"

#include "Frame/ScriptFunction.h"

#include <limits>

static const ScriptFunction declaration("DefineRegisterDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineRegisterDialog, UserReal>);

// The setup time stays at or under the clock delay: each limits the other as soon as it has been
// finished, be it by the user or by the script. Until then the form's own two stand as they are.
DefineRegisterDialog::DefineRegisterDialog() : DigitalDeviceDialog("DefineRegisterDialog", 1) {
  connect(form.setupTimeEdit, &Spinner::changed, this,
          &DefineRegisterDialog::setupTimeEdit_changed);
  connect(form.clockDelayEdit, &Spinner::changed, this,
          &DefineRegisterDialog::clockDelayEdit_changed);
}

void DefineRegisterDialog::setupTimeEdit_changed(const QString&) {
  form.clockDelayEdit->setMin(form.setupTimeEdit->number().value_or(0));
}

void DefineRegisterDialog::clockDelayEdit_changed(const QString&) {
  form.setupTimeEdit->setMax(
      form.clockDelayEdit->number().value_or(std::numeric_limits<double>::infinity()));
}
