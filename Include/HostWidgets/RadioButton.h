#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QRadioButton>

/// One of several, bound by itself as a `CheckBox` is; in a `RadioGroup` the group binds for all.
class HOSTWIDGETS_EXPORT RadioButton : public QRadioButton, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false)
  Q_PROPERTY(QString stringValue READ stringValue WRITE setStringValue STORED false)

public:
  explicit RadioButton(QWidget* parent = nullptr);
  double value() const { return isChecked() ? 1 : 0; }
  void setValue(double value); ///< 0 unchecks it even where its group is exclusive
  QString stringValue() const;
  void setStringValue(const QString& text); ///< another text leaves it as it is
};
