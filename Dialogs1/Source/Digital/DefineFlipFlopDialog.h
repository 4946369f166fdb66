#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineFlipFlopDialog.h"

/// A flip-flop. Times that do not go together are warned of and taken as they are.
class DefineFlipFlopDialog : public DigitalDeviceDialog<Ui::DefineFlipFlopDialog> {
  Q_OBJECT

public:
  DefineFlipFlopDialog();

  void initialiseDialog() override;

protected:
  void changeEvent(QEvent* event) override;

private:
  void colourWarnings();
  void showHoldTimeViolation();
  void showClockDelayViolation();
};
