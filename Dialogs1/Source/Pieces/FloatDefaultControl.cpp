#include "Pieces/FloatDefaultControl.h"

#include "HostWidgets/Spinner.h"

#include <QAbstractButton>
#include <QScopedValueRollback>

#include <cmath>

FloatDefaultControl::FloatDefaultControl(Spinner* number, QAbstractButton* useDefault,
                                         bool disablesWhenDefault)
    : spinner(number), button(useDefault), defaultValue(number->value()),
      disableWhenDefault(disablesWhenDefault) {
  connect(button, &QAbstractButton::clicked, this, &FloatDefaultControl::defaultClick);
  // Both: a value that is set may change without its text, and a text that is typed is not
  // finished.
  connect(spinner, &Spinner::textChanged, this, &FloatDefaultControl::changed);
  connect(spinner, &Spinner::changed, this, &FloatDefaultControl::changed);
}

void FloatDefaultControl::setDefaultValue(double value) {
  defaultValue = value;
  const QScopedValueRollback<bool> guard(busy, true);
  if (button->isChecked())
    spinner->setValue(defaultValue);
}

void FloatDefaultControl::synchronise() {
  constexpr double tolerance = 1e-9; // of a default that has been through a text
  const bool isDefault =
      std::fabs(spinner->value() - defaultValue) <= std::fabs(defaultValue * tolerance);
  if (!disableWhenDefault)
    button->setChecked(isDefault);
  else if (!isDefault)
    button->setChecked(false);
  if (disableWhenDefault)
    spinner->setEnabled(!button->isChecked());
}

void FloatDefaultControl::defaultClick() {
  const QScopedValueRollback<bool> guard(busy, true);
  if (button->isChecked())
    spinner->setValue(defaultValue);
  if (disableWhenDefault)
    spinner->setEnabled(!button->isChecked());
}

void FloatDefaultControl::changed() {
  if (!busy)
    button->setChecked(spinner->value() == defaultValue);
}
