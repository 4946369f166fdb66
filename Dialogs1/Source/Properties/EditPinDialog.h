#pragma once

#include "Properties/AddPropertyDialog.h"

/// Changes the name of a symbol pin, and how that is shown.
class EditPinDialog : public AddPropertyDialog {
  Q_OBJECT

public:
  EditPinDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
  void loadProperty(PropertyRecord* property) override;

protected:
  Fields ticks; ///< by element of their argument
};
