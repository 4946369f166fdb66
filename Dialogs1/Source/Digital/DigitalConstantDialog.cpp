#include "Digital/DigitalConstantDialog.h"

#include "Digital/DigitValidator.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QMessageBox>

#include <cmath>

static const ScriptFunction declaration("DigitalConstantDialog", 1, "SRS", StringVectorResult,
                                        runDialogFunction<DigitalConstantDialog, UserString>);

DigitalConstantDialog::DigitalConstantDialog()
    : DigitalDeviceDialog("DigitalConstantDialog", 1, Sides::Outputs),
      validator(new DigitValidator(DigitBase::Decimal, this)) {
  form.valueEdit->setValidator(validator);
  connect(form.baseCombo, qOverload<int>(&ComboBox::activated), this,
          &DigitalConstantDialog::baseCombo_activated);
}

void DigitalConstantDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  currentBase = chosenBase();
  baseCombo_activated();
  // The field judges a text as it comes in, and this one came in before its base was known.
  const QString value = form.valueEdit->text();
  form.valueEdit->clear();
  form.valueEdit->setText(value);
}

void DigitalConstantDialog::okClicked() {
  const std::string digits = withoutLeadingZeros(toYs(form.valueEdit->text()).c_str());
  form.valueEdit->setText(digits.empty() ? QStringLiteral("0") : QString::fromStdString(digits));
  const std::size_t bits = bitsNeeded(digits, currentBase);
  if (double(bits) > std::floor(form.numBitsEdit->value()))
    refuse(bits);
  else
    KelvarinDialog::okClicked();
}

DigitBase DigitalConstantDialog::chosenBase() const {
  return digitBases.read(Tocs(form.baseCombo->currentText()), DigitBase::Decimal);
}

void DigitalConstantDialog::baseCombo_activated() {
  const DigitBase base = chosenBase();
  const YString value = toYs(form.valueEdit->text());
  std::optional<std::string> digits;
  if (!value.isEmpty() && base != currentBase) {
    digits = convertDigits(value.c_str(), currentBase, base);
    if (!digits) {
      form.baseCombo->setCurrentText(QString::fromLatin1(digitBases.word(currentBase)));
      refuse(bitsNeeded(value.c_str(), currentBase));
      return;
    }
  }
  currentBase = base;
  validator->setBase(base);
  if (digits)
    form.valueEdit->setText(QString::fromStdString(*digits));
}

void DigitalConstantDialog::refuse(std::size_t bits) {
  QMessageBox::critical(this, tr("Insufficient Number of Bits"),
                        tr("The value entered requires at least %1 bits. Increase the number of "
                           "bits or reduce the value")
                            .arg(bits));
  form.tabWidget->setCurrentIndex(0);
  form.valueEdit->setFocus(Qt::OtherFocusReason);
  form.valueEdit->selectAll();
}
