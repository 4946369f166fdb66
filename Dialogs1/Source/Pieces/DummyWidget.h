#pragma once

#include "HostSupportQt/KV_FunctionDef.h"

#include <QWidget>

/// A hidden widget that fills a result element which no visible one stands for, with its
/// `stringValue`.
class DummyWidget : public QWidget, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(QString stringValue MEMBER stringValue)

public:
  DummyWidget(QWidget* parent, int outElement);
  bool isReal() override { return false; }

  QString stringValue;
};
