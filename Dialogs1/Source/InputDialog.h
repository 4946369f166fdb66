#pragma once

#include "KelvarinDialog.h"
#include "ui_BaseInputDialog.h"

/// One line of text.
class InputDialog : public KelvarinDialog {
public:
  explicit InputDialog(const char* objectName);

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private:
  Ui::BaseInputDialog form;
};

/// The two kinds differ in the name under which their geometry is remembered.
class InputGraph : public InputDialog {
public:
  InputGraph() : InputDialog("InputGraph") {}
};

class InputSchem : public InputDialog {
public:
  InputSchem() : InputDialog("InputSchem") {}
};
