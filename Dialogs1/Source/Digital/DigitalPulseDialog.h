#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DigitalPulseDialog.h"

/// Period, width and delay of a digital pulse source.
class DigitalPulseDialog : public DigitalDeviceDialog<Ui::DigitalPulseDialog> {
  Q_OBJECT

public:
  DigitalPulseDialog() : DigitalDeviceDialog("DigitalPulseDialog", 1) {}
};
