#pragma once

#include "Digital/ui_EditDigInitDialog.h"
#include "Frame/KelvarinDialog.h"

/// State and strength that a digital node starts with.
class EditDigInitDialog : public KelvarinDialog {
  Q_OBJECT

public:
  EditDigInitDialog();

  void initialiseDialog() override;

private:
  Ui::EditDigInitDialog form;
};
