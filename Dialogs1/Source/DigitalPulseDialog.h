#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DigitalPulseDialog.h"

/// Period, width and delay of a digital pulse source.
class DigitalPulseDialog : public DigitalDeviceDialog<Ui::DigitalPulseDialog> {
public:
  DigitalPulseDialog() : DigitalDeviceDialog("DigitalPulseDialog", 1) {}
};
