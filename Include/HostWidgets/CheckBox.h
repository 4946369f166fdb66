#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QCheckBox>

/// A flag: 1 or 0 as a real, "1" or "0" as a string; takes "true" and "false" in any case, too.
class HOSTWIDGETS_EXPORT CheckBox : public QCheckBox, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false)
  Q_PROPERTY(QString stringValue READ stringValue WRITE setStringValue STORED false)

public:
  explicit CheckBox(QWidget* parent = nullptr, const char* objectName = nullptr);
  double value() const { return isChecked() ? 1 : 0; }
  void setValue(double value) { setChecked(value != 0); }
  QString stringValue() const;
  void setStringValue(const QString& text); ///< another text leaves it as it is
};
