#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineLatchDialog.h"

/// A transparent latch.
class DefineLatchDialog : public DigitalDeviceDialog<Ui::DefineLatchDialog> {
  Q_OBJECT

public:
  DefineLatchDialog() : DigitalDeviceDialog("DefineLatchDialog", 2) {}

  void initialiseDialog() override;
};
