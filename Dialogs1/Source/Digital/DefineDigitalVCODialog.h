#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineDigitalVCODialog.h"

/// An oscillator with a digital output and an analog control voltage.
class DefineDigitalVCODialog : public DigitalDeviceDialog<Ui::DefineDigitalVCODialog> {
  Q_OBJECT

public:
  DefineDigitalVCODialog();
};
