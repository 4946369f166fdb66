#include "Digital/DefineADCDialog.h"

#include "Core/Digital/ConverterTiming.h"
#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineADCDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<DefineADCDialog, UserReal>);

DefineADCDialog::DefineADCDialog() : DigitalDeviceDialog("DefineADCDialog", 1) {
  settle();
  connect(form.convertTimeEdit, &Spinner::textChanged, this, &DefineADCDialog::showPossibleRate);
  connect(form.convertTimeEdit, &Spinner::changed, this, &DefineADCDialog::convertTimeEdit_changed);
  connect(form.maxConvRateEdit, &Spinner::textChanged, this, &DefineADCDialog::showPossibleTime);
  connect(form.maxConvRateEdit, &Spinner::changed, this, &DefineADCDialog::maxConvRateEdit_changed);
}

void DefineADCDialog::convertTimeEdit_changed(const QString&) {
  showPossibleRate();
  settle();
}

void DefineADCDialog::maxConvRateEdit_changed(const QString&) {
  showPossibleTime();
  settle();
}

void DefineADCDialog::showPossibleRate() {
  follow(form.maxConvRateEdit, wantedRate, form.convertTimeEdit);
}

void DefineADCDialog::showPossibleTime() {
  follow(form.convertTimeEdit, wantedTime, form.maxConvRateEdit);
}

void DefineADCDialog::follow(Spinner* edit, double wanted, const Spinner* other) {
  if (updating || edit->isExpression())
    return;
  const Updating guard(this);
  edit->setValue(atLeastReciprocal(wanted, other->value()));
}

void DefineADCDialog::settle() {
  if (updating)
    return;
  wantedTime = form.convertTimeEdit->value();
  wantedRate = form.maxConvRateEdit->value();
}
