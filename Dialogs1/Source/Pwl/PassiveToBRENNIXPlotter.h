#pragma once

#include "Core/Pwl/EnergyConversion.h"
#include "Frame/WaitingDialog.h"
#include "HostWidgets/Axis.h"
#include "Pwl/ui_PassiveToBRENNIXPlotter.h"

/// Capacitance or inductance above, charge or flux linkage below: what was given, and what the
/// polyline makes of it.
class PassiveToBRENNIXPlotter : public WaitingDialog {
  Q_OBJECT

public:
  PassiveToBRENNIXPlotter(QWidget* parent, bool isInductor, const EnergyPlot& plot);

protected:
  void showEvent(QShowEvent* event) override; ///< where it was the last time
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void showLegend();
  void showLabels(bool isInductor, const EnergyPlot& plot);
  void showCurves(const EnergyPlot& plot);
  void showAxes(const EnergyPlot& plot);

  Ui::PassiveToBRENNIXPlotter form;
  Axis topX;
  Axis topY;
  Axis bottomX;
  Axis bottomY;
};
