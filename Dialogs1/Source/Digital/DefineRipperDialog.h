#pragma once

#include "Digital/ui_DefineRipperDialog.h"
#include "Frame/KelvarinDialog.h"

/// A ripper: what takes some of the wires out of a bus.
class DefineRipperDialog : public KelvarinDialog {
  Q_OBJECT

public:
  DefineRipperDialog();

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private:
  Ui::DefineRipperDialog form;
};
