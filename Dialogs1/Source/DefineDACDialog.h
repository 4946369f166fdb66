#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DefineDACDialog.h"

/// A digital to analog converter.
class DefineDACDialog : public DigitalDeviceDialog<Ui::DefineDACDialog> {
public:
  DefineDACDialog();
};
