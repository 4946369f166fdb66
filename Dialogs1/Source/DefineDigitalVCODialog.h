#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DefineDigitalVCODialog.h"

/// An oscillator with a digital output and an analog control voltage.
class DefineDigitalVCODialog : public DigitalDeviceDialog<Ui::DefineDigitalVCODialog> {
public:
  DefineDigitalVCODialog();
};
