#include "HostWidgets/GroupBox.h"

#include "FlagText.h"
#include "HostSupportQt/GuiThread.h"
#include "HostWidgets/Accessibility.h"

GroupBox::GroupBox(QWidget* parent, const char* objectName)
    : QGroupBox(sp_GuiParent(parent, "GroupBox")) {
  installFieldAccessibility();
  setObjectName(QLatin1String(objectName));
}

QString GroupBox::stringValue() const {
  return flagText(isChecked());
}

void GroupBox::setStringValue(const QString& text) {
  if (const auto on = readFlag(text))
    setChecked(*on);
}
