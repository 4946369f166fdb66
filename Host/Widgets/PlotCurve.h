#pragma once

#include <QPolygonF>

#include <cstddef>
#include <vector>

class QwtScaleMap;

/// The points of a curve, and what of them has to be drawn so that it looks as if all were.
class PlotCurve {
public:
  PlotCurve() = default;
  /// From `count` values of x and of y, each `stride` apart. Points with a NaN or an infinity part
  /// the curve into stretches.
  PlotCurve(const double* x, const double* y, std::size_t count, std::size_t stride);

  bool isEmpty() const { return m_points.empty(); }

  /// The stretches in pixels, clipped to somewhat more than `area`. Of consecutive points in the
  /// same column of pixels only the first, the lowest, the highest and the last are left, so that
  /// no peak is lost; a stretch of one point is a polygon of one. Coordinates are those of pixels,
  /// not of the gaps between them. Where x ascends, the time is that of the points in sight.
  std::vector<QPolygonF> paths(const QwtScaleMap& x, const QwtScaleMap& y,
                               const QRectF& area) const;

private:
  std::size_t columnEnd(std::size_t from, std::size_t end, const QwtScaleMap& x) const;
  int turns(std::size_t begin, std::size_t end) const;
  void keepColumn(std::size_t begin, std::size_t end, const QwtScaleMap& x, const QwtScaleMap& y,
                  QPolygonF* path) const;

  std::vector<QPointF> m_points;     ///< finite ones only
  std::vector<std::size_t> m_starts; ///< of the stretches, ascending
  bool m_ascending = true;           ///< x never falls, over all stretches
};
