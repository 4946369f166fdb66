#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QPlainTextEdit>

/// Text of several lines, bound as one string; Tab leaves it.
class HOSTWIDGETS_EXPORT TextEdit : public QPlainTextEdit, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(QString stringValue READ toPlainText WRITE setPlainText STORED false)

public:
  explicit TextEdit(QWidget* parent = nullptr, const char* objectName = nullptr);
  bool isReal() override { return false; }
};
