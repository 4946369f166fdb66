#pragma once

#include <QPointF>
#include <QVector>

#include <optional>
#include <vector>

enum class AxisScale { Linear, Logarithmic };

/// Two places in a picture whose value on one axis is known.
struct AxisMarks {
  QPointF first, second; ///< picture pixels; the middle of the first pixel is (0.5, 0.5)
  double firstValue = 0;
  double secondValue = 0;
  AxisScale scale = AxisScale::Linear;
};

enum class AxisFault {
  None,
  NoNumber,    ///< a value is not finite, or both are too far apart for a number
  SamePlace,   ///< less than a pixel apart
  SameValue,   ///< no direction follows from them
  NotPositive, ///< a value that a logarithmic axis does not have
};
AxisFault faultOf(const AxisMarks& marks);

/// From picture pixels to the values of a graph and back. Each axis has a direction of its own, so
/// a picture may be turned, mirrored or skewed.
class GraphMap {
public:
  /// Nothing where an axis has a fault, or both run within five degrees of the same direction.
  static std::optional<GraphMap> fromAxes(const AxisMarks& x, const AxisMarks& y);

  QPointF toValues(const QPointF& pixel) const; ///< infinite far beyond a logarithmic axis
  QPointF toPicture(const QPointF& values) const;
  /// How many pixels `pixel` lies along the x axis, from its first mark.
  double alongX(const QPointF& pixel) const;

private:
  struct Axis {
    QPointF origin;    ///< the first mark
    QPointF direction; ///< from the first mark to the second
    double start;      ///< of the values, or of their logarithms
    double length;
    AxisScale scale;
  };
  GraphMap(const AxisMarks& x, const AxisMarks& y);
  static Axis axisOf(const AxisMarks& marks);

  Axis m_x, m_y;
  double m_cross; ///< of both directions
};

/// The values of points of a picture, by ascending x. Those that share an x to a tenth of a pixel
/// become one, in their middle; those that have no finite values are left out.
std::vector<QPointF> graphValues(const GraphMap& map, const QVector<QPointF>& pixels);
