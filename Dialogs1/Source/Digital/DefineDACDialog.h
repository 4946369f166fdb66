#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineDACDialog.h"

/// A digital to analog converter.
class DefineDACDialog : public DigitalDeviceDialog<Ui::DefineDACDialog> {
  Q_OBJECT

public:
  DefineDACDialog();
};
