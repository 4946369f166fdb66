#pragma once

#include "Generic/BaseAddRemoveDialog.h"
#include "Generic/ui_AddRemoveDialog.h"
#include "Generic/ui_AddRemoveDialog_2.h"

/// The lists side by side.
class AddRemoveDialog : public BaseAddRemoveDialog {
  Q_OBJECT

public:
  explicit AddRemoveDialog(bool plain);

private:
  Ui::AddRemoveDialog form;
};

/// One list above the other.
class AddRemoveDialog_2 : public BaseAddRemoveDialog {
  Q_OBJECT

public:
  explicit AddRemoveDialog_2(bool plain);

private:
  Ui::AddRemoveDialog_2 form;
};
