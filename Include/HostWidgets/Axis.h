#pragma once

#include "HostWidgets/Export.h"

#include <memory>

class AxisData;

/// The range of one direction of a `Plotter`, and how it is divided.
///
/// A copy is an axis of its own. A plotter follows the axis that it was initialised with: what is
/// set later shows there too, and the plotter may outlive the axis.
class HOSTWIDGETS_EXPORT Axis {
public:
  Axis(); ///< 0 to 1 with 4 lines and with labels
  Axis(const Axis& other);
  Axis& operator=(const Axis& other);
  ~Axis();

  /// `majorLines` grid lines stand between the two ends where that makes round steps, else about
  /// as many at round values; 0: none. `minorLines` stand between two of them; 0: as suit the
  /// step. `labels` 2 shows the values at the lines, anything else does not. The fifth argument is
  /// taken for the sake of callers and means nothing.
  ///
  /// Ends in the wrong order are swapped; ends that are equal, too near to each other to be told
  /// apart, beyond 1e300 or not finite give a range around what there is.
  void setAxisParams(double minimum, double maximum, unsigned majorLines, unsigned minorLines,
                     unsigned, unsigned labels);
  /// Moves the ends outwards so that they and the lines are at round values; the number of lines
  /// stays as near as that allows.
  void adjustAxis();
  /// Decades instead of values have the same width from now on; off at first. Zoom and scrolling go
  /// by decades, and the lines stand at decades, or between them where less than two are on show.
  /// An end that is not above zero gives way to one within reach of the other.
  void setLogarithmic(bool on);
  bool isLogarithmic() const;

  double minimum() const;
  double maximum() const;

private:
  friend class Plotter;
  std::shared_ptr<AxisData> m_data; ///< never null; shared with plotters, not with other axes
};
