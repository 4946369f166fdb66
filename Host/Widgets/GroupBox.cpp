#include "HostWidgets/GroupBox.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include "FlagText.h"

GroupBox::GroupBox(QWidget* parent, const char* objectName) : QGroupBox(parent) {
  setObjectName(QLatin1String(objectName));
}

QString GroupBox::stringValue() const {
  return flagText(isChecked());
}

void GroupBox::setStringValue(const QString& text) {
  if (const auto on = readFlag(text))
    setChecked(*on);
}

void GroupBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  // Beside a check box the style measures a title too short by the width of its last letter.
  if (isCheckable())
    option.text += QStringLiteral("\u00a0\u00a0");
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}
