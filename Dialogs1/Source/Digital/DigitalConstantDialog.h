#pragma once

#include "Core/Digital/DigitalConstant.h"
#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DigitalConstantDialog.h"

class DigitValidator;

/// A bit pattern of up to 256 bits, shown in a base of the user's choice.
class DigitalConstantDialog : public DigitalDeviceDialog<Ui::DigitalConstantDialog> {
  Q_OBJECT

public:
  DigitalConstantDialog();

  void initialiseDialog() override;
  void okClicked() override;

private:
  void baseCombo_activated();
  DigitBase chosenBase() const;
  void refuse(std::size_t bits);

  DigitBase currentBase = DigitBase::Decimal; ///< the one that the value is written in
  DigitValidator* validator;
};
