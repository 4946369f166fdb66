#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_ParametersDialog.h"

/// Named values, edited in place. Opened by a dialog whose call has the names in argument 2 and the
/// values in argument 3; there is nothing to cancel, what was typed stands in the view.
class ParametersDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit ParametersDialog(QWidget* parent = nullptr, const char* objectName = "ParametersDialog");

  /// The table, for an owner that loads and reads it by hand: `readWidget` starts at the data that
  /// it is given, whatever the `outElementIndex`.
  ParameterView* view() const { return form.listView1; }

  /// Whether a call has both names and values.
  static bool arePassed(UserFunctionInterface* call);
  /// Writes the number of parameters, as text, and their values into the host's slots of a result.
  /// Returns the slot behind them.
  char** writeCountAndValues(UserFunctionInterface* call, char** slot) const;

protected:
  Ui::ParametersDialog form;
};

/// What a dialog that opens such a box owns from `prepareDialog` on.
class OwnedParameters : public KelvarinDialogData {
public:
  OwnedParameters(KelvarinDialog* owner, UserFunctionInterface* args, UserDataType type);

  /// The box of a dialog whose data are one of these; null before they are there.
  static ParametersDialog* of(const KelvarinDialogData* data) {
    return data ? static_cast<const OwnedParameters*>(data)->parameters : nullptr;
  }

  ParametersDialog* parameters; ///< a child of the dialog
};
