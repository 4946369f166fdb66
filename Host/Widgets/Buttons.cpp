#include "HostWidgets/Buttons.h"

PushButton::PushButton(QWidget* parent, const char* objectName) : QPushButton(parent) {
  setObjectName(QLatin1String(objectName));
}

OkButton::OkButton(QWidget* parent, const char* objectName) : PushButton(parent, objectName) {
  setText(tr("OK"));
  setDefault(true);
}

CancelButton::CancelButton(QWidget* parent, const char* objectName)
    : PushButton(parent, objectName) {
  setText(tr("Cancel"));
}
