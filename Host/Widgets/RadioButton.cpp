#include "HostWidgets/RadioButton.h"

#include "FlagText.h"
#include "HostSupportQt/GuiThread.h"
#include "RadioCheck.h"

RadioButton::RadioButton(QWidget* parent) : QRadioButton(sp_GuiParent(parent, "RadioButton")) {}

void RadioButton::setValue(double value) {
  setRadioChecked(this, value != 0);
}

QString RadioButton::stringValue() const {
  return flagText(isChecked());
}

void RadioButton::setStringValue(const QString& text) {
  if (const auto on = readFlag(text))
    setRadioChecked(this, *on);
}
