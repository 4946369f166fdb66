#pragma once

#include "KelvarinDialog.h"
#include "ui_RadioSelect.h"

/// One of several, as radio buttons, with an optional check box below.
class RadioSelect : public KelvarinDialog {
public:
  RadioSelect();

  int helpContextId() override;
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  /// The number of the button from 1, and the check box where there is one; a single 0 on cancel.
  void readDialog(UserDataType type, bool accepted) override;

private:
  void fillGroup();

  Ui::Form1 form;
  YString helpNumber;
  bool hasCheckBox = false;
};
