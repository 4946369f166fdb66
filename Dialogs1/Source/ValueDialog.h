#pragma once

#include "KelvarinDialog.h"
#include "ValueRows.h"
#include "ui_NewValueDialog.h"

class Spinner;

/// A few labelled numbers, with limits that suit the kind of device.
class ValueDialog : public KelvarinDialog {
public:
  ValueDialog();

  /// Rows that a call asks for.
  static unsigned rowCount(UserFunctionInterface* call);

  void initialiseDialog() override;
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;

protected:
  void showEvent(QShowEvent* event) override;

private:
  void addRow(int row, const char* caption, double value);
  void applyLinkedLimits();
  void box1Change(const QString& text);
  void box2Change(const QString& text);
  Spinner* rowSpinner(const char* name) const;

  Ui::NewValueDialog form;
  ValueMode mode = ValueMode::Plain;
};
