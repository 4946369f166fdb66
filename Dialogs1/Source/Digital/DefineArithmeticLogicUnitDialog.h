#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineArithmeticLogicUnitDialog.h"

/// A unit that does one operation on two digital words.
class DefineArithmeticLogicUnitDialog
    : public DigitalDeviceDialog<Ui::DefineArithmeticLogicUnitDialog> {
  Q_OBJECT

public:
  DefineArithmeticLogicUnitDialog();

  void initialiseDialog() override;

private:
  void updateEnables();
};
