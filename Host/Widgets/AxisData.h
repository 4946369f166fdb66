#pragma once

#include "PlotScale.h"

#include <QObject>

/// What an axis and the plotters that follow it share.
class AxisData : public QObject {
  Q_OBJECT

public:
  PlotRange range; ///< usable; in decades where it is logarithmic
  bool isLogarithmic = false;
  unsigned lines = 4;
  unsigned minorLines = 0;
  bool labels = true;

signals:
  void changed();
};
