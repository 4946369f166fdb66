#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineRegisterDialog.h"

/// A register of edge-triggered flip-flops.
class DefineRegisterDialog : public DigitalDeviceDialog<Ui::DefineRegisterDialog> {
  Q_OBJECT

public:
  DefineRegisterDialog();

private slots:
  void setupTimeEdit_changed(const QString&);
  void clockDelayEdit_changed(const QString&);
};
