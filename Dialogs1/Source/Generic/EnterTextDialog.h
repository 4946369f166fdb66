#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_EnterTextDialog.h"

/// A text of any number of lines.
class EnterTextDialog : public KelvarinDialog {
  Q_OBJECT

public:
  EnterTextDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private:
  Ui::EnterTextDialog form;
};
