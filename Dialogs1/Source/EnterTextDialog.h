#pragma once

#include "KelvarinDialog.h"
#include "ui_EnterTextDialog.h"

/// A text of any number of lines.
class EnterTextDialog : public KelvarinDialog {
public:
  EnterTextDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private:
  Ui::EnterTextDialog form;
};
