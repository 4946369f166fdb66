#include "HostWidgets/Buttons.h"

#include "HostSupportQt/GuiThread.h"

PushButton::PushButton(QWidget* parent, const char* objectName)
    : QPushButton(sp_GuiParent(parent, "PushButton")) {
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
