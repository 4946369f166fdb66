#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DefineShiftRegDialog.h"

/// A shift register with parallel outputs.
class DefineShiftRegDialog : public DigitalDeviceDialog<Ui::DefineShiftRegDialog> {
public:
  DefineShiftRegDialog() : DigitalDeviceDialog("DefineShiftRegDialog", 1) {}
};
