#pragma once

#include "HostSupport/Export.h"

#include <cstdint>
#include <vector>

/// A curve thinned out to what a plot of some pixels can show.
///
/// Of the points in a column of pixels those stay that enter and leave it and the lowest and
/// highest of them, in their order. So the lines between the remaining points cover the same pixels
/// as before: no edge or spike is lost, however short, and at most four points remain in a column.
class HOSTSUPPORT_EXPORT CompressedData {
public:
  /// Thins out `count` points (`x`, `y`), joined by lines in their order, to `pixels` columns
  /// between `from` and `to`, the ends of the x axis. All to one side of it counts as one more
  /// column, so that lines that cross its ends are kept. With `isStepped` y holds from each point
  /// to the x of the next one, and the corners are put in. Points that are not finite are left out.
  /// Where x goes back, each passage through a column is thinned out by itself. An axis without
  /// extent, or less than one pixel, counts as a single column for everything.
  void build(const double* x, const double* y, std::int64_t count, double from, double to,
             int pixels, bool isStepped);

  std::int64_t numPoints() const { return static_cast<std::int64_t>(m_x.size()); }
  const double* xraw() const { return m_x.data(); } ///< valid until the next `build`
  const double* yraw() const { return m_y.data(); }

private:
  std::vector<double> m_x;
  std::vector<double> m_y;
};
