#include "Analog/EditReactiveDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditReactiveDialog", 2, "SSSS", StringVectorResult,
                                        runDialogFunction<EditReactiveDialog, UserString>);

namespace {

enum Argument { Value, Settings };
enum ValueElement : unsigned { InitialCondition = 1 };
enum Setting : unsigned { DeviceKind = 2, FirstAnalysis };

} // namespace

EditReactiveDialog::EditReactiveDialog() : NewPassiveDialog("EditReactiveDialog") {
  form.initialConditionGroup->show();
}

void EditReactiveDialog::initialiseDialog() {
  const QString initialCondition = texts(Value).text(InitialCondition);
  if (!initialCondition.isEmpty()) {
    form.editInitialVoltage->setText(initialCondition);
    form.rbInitialVoltage->setChecked(true);
  }
  radioGroup_clicked(form.rbInitialVoltage->isChecked());

  const Texts settings = texts(Settings);
  if (settings.is(DeviceKind, "inductor"))
    showInductor();
  unsigned analysis = FirstAnalysis;
  for (QCheckBox* box : analysisBoxes()) {
    box->setChecked(settings.is(analysis++, "true"));
    box->setVisible(settings.has(FirstAnalysis));
  }
  form.icEnableLabel->setVisible(settings.has(FirstAnalysis));
  NewPassiveDialog::initialiseDialog();
}

void EditReactiveDialog::showInductor() {
  form.rbOpenCircuit->setText(tr("Shor&t circuit"));
  form.rbInitialVoltage->setText(tr("&Initial current"));
  form.editInitialVoltage->setAccessibleName(tr("Initial current"));
}

void EditReactiveDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  QStringList enables;
  for (const QCheckBox* box : analysisBoxes())
    enables += QLatin1String(flagWord(box->isChecked()));
  makeResult({form.resultEdit->stringValue(),
              form.rbOpenCircuit->isChecked() ? QString() : form.editInitialVoltage->stringValue()},
             enables);
}

QList<QCheckBox*> EditReactiveDialog::analysisBoxes() const {
  return {form.cbOp, form.cbTransient, form.cbAC, form.cbDC};
}
