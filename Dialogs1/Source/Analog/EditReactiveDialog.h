#pragma once

#include "Analog/NewPassiveDialog.h"

/// The value of a capacitor or an inductor, with the condition in which an analysis finds it.
class EditReactiveDialog : public NewPassiveDialog {
  Q_OBJECT

public:
  EditReactiveDialog();

  void initialiseDialog() override;
  /// The value, the initial condition, the parameters, and for which analyses it holds.
  void readDialog(UserDataType type, bool accepted) override;

private:
  void showInductor();
  QList<QCheckBox*> analysisBoxes() const; ///< in the order of the settings
};
