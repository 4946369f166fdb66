#include "HostWidgets/CheckBox.h"

#include "FlagText.h"
#include "HostSupportQt/GuiThread.h"

CheckBox::CheckBox(QWidget* parent, const char* objectName)
    : QCheckBox(sp_GuiParent(parent, "CheckBox")) {
  setObjectName(QLatin1String(objectName));
}

QString CheckBox::stringValue() const {
  return flagText(isChecked());
}

void CheckBox::setStringValue(const QString& text) {
  if (const auto on = readFlag(text))
    setChecked(*on);
}
