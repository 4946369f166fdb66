#pragma once

#include "KelvarinDialog.h"
#include "ui_EditDigInitDialog.h"

/// State and strength that a digital node starts with.
class EditDigInitDialog : public KelvarinDialog {
public:
  EditDigInitDialog();

  void initialiseDialog() override;

private:
  Ui::EditDigInitDialog form;
};
