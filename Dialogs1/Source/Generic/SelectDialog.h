#pragma once

#include "Generic/EditDeviceDialog.h"

/// Picks one item of a list, or several: the box of EditDeviceDialog with another result.
class SelectDialog : public EditDeviceDialog {
  Q_OBJECT

public:
  SelectDialog();

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  /// The places of the selected items in the script's vector, in the order of the list.
  void readDialog(UserDataType type, bool accepted) override;
};
