#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QByteArray>
#include <QPlainTextEdit>

/// Text of several lines, bound as one string; Tab leaves it. A text that the user has not modified
/// goes back byte for byte, even where it cannot be shown so: line ends, special blanks, and bytes
/// that are no valid text.
class HOSTWIDGETS_EXPORT TextEdit : public QPlainTextEdit, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(QString stringValue READ stringValue WRITE setStringValue STORED false)

public:
  explicit TextEdit(QWidget* parent = nullptr, const char* objectName = nullptr);
  bool isReal() override { return false; }
  bool hasReadWidget() override { return true; }
  bool initialiseWidget(UserFunctionInterface* call) override;
  bool readWidget(UserReturnData* result, const UserFunctionInterface* call) override;

  QByteArray bytes() const; ///< as loaded where unmodified, else what is shown
  void load(const QByteArray& text);
  QString stringValue() const { return QString::fromUtf8(bytes()); }
  void setStringValue(const QString& text) { load(text.toUtf8()); }

private:
  QByteArray m_loaded;
  QString m_shown; ///< what that reads as here
};
