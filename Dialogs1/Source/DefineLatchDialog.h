#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DefineLatchDialog.h"

/// A transparent latch.
class DefineLatchDialog : public DigitalDeviceDialog<Ui::DefineLatchDialog> {
public:
  DefineLatchDialog() : DigitalDeviceDialog("DefineLatchDialog", 2) {}

  void initialiseDialog() override;
};
