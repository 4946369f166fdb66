#include "FieldAccessibility.h"

#include "HostSupportQt/Captions.h"

#include <QGroupBox>
#include <QLabel>

#ifndef QT_NO_ACCESSIBILITY

QString fieldName(QWidget* field) {
  if (!field->accessibleName().isEmpty())
    return field->accessibleName();
  // Qt looks among the neighbours only; a label may stand in another box than its field.
  for (QLabel* label : field->window()->findChildren<QLabel*>())
    if (label->buddy() == field && !label->text().isEmpty())
      return plainCaption(label->text());
  auto* box = qobject_cast<QGroupBox*>(field->parentWidget());
  return box ? plainCaption(box->title()) : QString();
}

void* TextAccessible::interface_cast(QAccessible::InterfaceType type) {
  switch (type) {
  case QAccessible::TextInterface:
    return static_cast<QAccessibleTextInterface*>(&m_text);
  case QAccessible::EditableTextInterface:
    return static_cast<QAccessibleEditableTextInterface*>(&m_text);
  default:
    return QAccessibleWidget::interface_cast(type);
  }
}

#endif
