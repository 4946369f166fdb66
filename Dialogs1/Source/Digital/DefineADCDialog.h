#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineADCDialog.h"

/// An analog to digital converter.
class DefineADCDialog : public DigitalDeviceDialog<Ui::DefineADCDialog> {
  Q_OBJECT

public:
  DefineADCDialog();

private slots:
  void convertTimeEdit_changed(const QString&);
  void maxConvRateEdit_changed(const QString&);

private:
  void showPossibleRate();
  void showPossibleTime();
  void follow(Spinner* edit, double wanted, const Spinner* other);
  void settle();

  // As the user has left them. While the one is being typed, the other on show follows it and
  // these stand: the "5" on the way to "500k" costs nobody his conversion time.
  double wantedTime = 0;
  double wantedRate = 0;
};
