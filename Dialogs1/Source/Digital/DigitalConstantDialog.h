#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DigitalConstantDialog.h"

class DigitValidator;

/// A bit pattern of up to 256 bits, shown in a base of the user's choice.
class DigitalConstantDialog : public DigitalDeviceDialog<Ui::DigitalConstantDialog> {
public:
  DigitalConstantDialog();

  void initialiseDialog() override;
  void okClicked() override;

private:
  void baseCombo_activated();
  void refuse(std::size_t bits);

  YString currentBase; ///< the one that the value is written in
  DigitValidator* validator;
};
