#pragma once

#include "Properties/AddPropertyDialog.h"

/// Changes a property; its name stays.
class EditPropertyDialog : public AddPropertyDialog {
  Q_OBJECT

public:
  EditPropertyDialog() : AddPropertyDialog("EditPropertyDialog") {}

  int helpContextId() override;
  void readDialog(UserDataType type, bool accepted) override;
  void loadProperty(PropertyRecord* property) override;
};
