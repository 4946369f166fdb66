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

void DefineRegisterDialog::setupTimeEdit_changed() {
  form.clockDelayEdit->setMin(form.setupTimeEdit->value());
}

void DefineRegisterDialog::clockDelayEdit_changed() {
  // The value of an expression is not known here, and no limit can follow from it. As a setup time
  // it counts as 0, which is none either.
  form.setupTimeEdit->setMax(form.clockDelayEdit->isExpression()
                                 ? std::numeric_limits<double>::infinity()
                                 : form.clockDelayEdit->value());
}
