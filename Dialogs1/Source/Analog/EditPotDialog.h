#pragma once

#include "Analog/ui_EditPotDialog.h"
#include "Frame/KelvarinDialog.h"

/// Resistance and wiper of a potentiometer.
class EditPotDialog : public KelvarinDialog {
  Q_OBJECT

public:
  EditPotDialog();

private:
  Ui::EditPotDialog form;
};
