#pragma once

#include "DigitalDeviceDialog.h"
#include "ui_DefineLogicGateDialog.h"

/// A logic gate.
class DefineLogicGateDialog : public DigitalDeviceDialog<Ui::DefineLogicGateDialog> {
public:
  DefineLogicGateDialog();

protected:
  explicit DefineLogicGateDialog(const char* name); ///< one without an analog interface
};
