#pragma once

#include "Generic/ParametersDialog.h"

/// The parameters of a script: names in argument 0, values in argument 1, a title in argument 2.
class UserParametersDialog : public ParametersDialog {
  Q_OBJECT

public:
  UserParametersDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
};
