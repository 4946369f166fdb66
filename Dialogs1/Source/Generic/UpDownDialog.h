#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_UpDownDialog.h"

#include <vector>

/// A list that the user puts in order.
class UpDownDialog : public KelvarinDialog {
  Q_OBJECT

public:
  UpDownDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private slots:
  void upButton_clicked();
  void downButton_clicked();

private:
  void moveCurrent(int step);

  Ui::UpDownDialog form;
  /// Index of each row's item in the script's vector: an item goes back byte for byte, even one
  /// that is no valid text and cannot be shown as it is.
  std::vector<unsigned> order;
};
