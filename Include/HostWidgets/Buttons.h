#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QPushButton>

/// A push button with binding numbers; it binds nothing by itself.
class HOSTWIDGETS_EXPORT PushButton : public QPushButton, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES

public:
  explicit PushButton(QWidget* parent = nullptr, const char* objectName = nullptr);
};

/// The default button of a dialog.
class HOSTWIDGETS_EXPORT OkButton : public PushButton {
  Q_OBJECT

public:
  explicit OkButton(QWidget* parent = nullptr, const char* objectName = nullptr);
};

/// The button that Escape stands for.
class HOSTWIDGETS_EXPORT CancelButton : public PushButton {
  Q_OBJECT

public:
  explicit CancelButton(QWidget* parent = nullptr, const char* objectName = nullptr);
};
