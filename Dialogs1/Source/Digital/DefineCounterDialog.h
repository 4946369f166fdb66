#pragma once

#include "Core/Digital/CounterCount.h"
#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineCounterDialog.h"

/// A binary counter.
class DefineCounterDialog : public DigitalDeviceDialog<Ui::DefineCounterDialog> {
  Q_OBJECT

public:
  explicit DefineCounterDialog(const char* name = "DefineCounterDialog");

  void initialiseDialog() override;

protected:
  void showLaterFeatures(bool on); ///< those that `DefineCounterDialog_V2` has

private:
  void numBitsEdit_changed();
  void cbMaxCount_clicked();
  void maxCountEdit_changed();
  void showPossibleCount();

  /// As the user has left it. While a number of bits is being typed, the count on show follows it
  /// and this one stands: the "1" on the way to "16" costs nobody his count.
  CounterCount wanted;
};
