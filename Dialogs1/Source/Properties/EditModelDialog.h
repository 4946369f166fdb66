#pragma once

#include "Frame/KelvarinDialog.h"
#include "Properties/ui_EditModelDialog.h"

/// A model from the global library, or a local copy that the user may change.
class EditModelDialog : public KelvarinDialog {
public:
  EditModelDialog();

  void initialiseDialog() override;

private:
  void localModelEdit_textChanged();

  Ui::EditModelDialog form;
};
