#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineShiftRegDialog.h"

/// A shift register with parallel outputs.
class DefineShiftRegDialog : public DigitalDeviceDialog<Ui::DefineShiftRegDialog> {
  Q_OBJECT

public:
  DefineShiftRegDialog() : DigitalDeviceDialog("DefineShiftRegDialog", 1) {}
};
