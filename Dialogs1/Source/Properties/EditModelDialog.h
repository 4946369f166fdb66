#pragma once

#include "Frame/KelvarinDialog.h"
#include "Properties/ui_EditModelDialog.h"

/// A model from the global library, or a local copy that the user may change.
class EditModelDialog : public KelvarinDialog {
  Q_OBJECT

public:
  EditModelDialog();

  void initialiseDialog() override;

private slots:
  void localModelEdit_textChanged();

private:
  Ui::EditModelDialog form;
};
