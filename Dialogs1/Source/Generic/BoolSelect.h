#pragma once

#include "Generic/RowBox.h"

/// A grid of check boxes.
class BoolSelect : public RowBox {
  Q_OBJECT

public:
  BoolSelect();

  /// Check boxes that a call asks for; 0 where it leaves that open.
  static unsigned boxCount(UserFunctionInterface* call);

  void initialiseDialog() override;
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;

protected:
  void showEvent(QShowEvent* event) override;

private slots:
  void selectAllButton_clicked();
  void unselectAllButton_clicked();

private:
  void checkAll(bool checked);
};
