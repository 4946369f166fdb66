#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineLogicGateDialog.h"

/// A logic gate.
class DefineLogicGateDialog : public DigitalDeviceDialog<Ui::DefineLogicGateDialog> {
  Q_OBJECT

public:
  DefineLogicGateDialog();

protected:
  explicit DefineLogicGateDialog(const char* name); ///< one without an analog interface
};
