#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineRegisterDialog.h"

/// A register of edge-triggered flip-flops.
class DefineRegisterDialog : public DigitalDeviceDialog<Ui::DefineRegisterDialog> {
public:
  DefineRegisterDialog();

private:
  void setupTimeEdit_changed();
  void clockDelayEdit_changed();
};
