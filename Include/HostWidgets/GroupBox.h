#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QGroupBox>

/// A titled box, which may be checkable; bound, its check state is a flag as a `CheckBox` has it.
class HOSTWIDGETS_EXPORT GroupBox : public QGroupBox, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false)
  Q_PROPERTY(QString stringValue READ stringValue WRITE setStringValue STORED false)

public:
  explicit GroupBox(QWidget* parent = nullptr, const char* objectName = nullptr);
  double value() const { return isChecked() ? 1 : 0; }
  void setValue(double value) { setChecked(value != 0); }
  QString stringValue() const;
  void setStringValue(const QString& text);
};
