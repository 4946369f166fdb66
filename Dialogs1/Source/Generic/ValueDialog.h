#pragma once

#include "Core/Generic/ValueRows.h"
#include "Generic/RowBox.h"

class Spinner;

/// A few labelled numbers, with limits that suit the kind of device.
class ValueDialog : public RowBox {
  Q_OBJECT

public:
  ValueDialog();

  /// Rows that a call asks for.
  static unsigned rowCount(UserFunctionInterface* call);

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;

private slots:
  void box1Change(const QString& text);
  void box2Change(const QString& text);

private:
  void addRow(int row, const QString& caption, double value);
  void applyLinkedLimits();
  Spinner* rowSpinner(const char* name) const;

  ValueMode mode = ValueMode::Plain;
};
