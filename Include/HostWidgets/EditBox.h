#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QLineEdit>

/// One line of text, bound as a string.
class HOSTWIDGETS_EXPORT EditBox : public QLineEdit, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(QString stringValue READ text WRITE setText STORED false)

public:
  explicit EditBox(QWidget* parent = nullptr, const char* objectName = nullptr);
  bool isReal() override { return false; }
};
