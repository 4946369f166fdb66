#include "Services/Digitiser/GraphMap.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double sameX = 0.1;         // pixels
constexpr double leastSine = 0.0872;  // of the angle between the axes: five degrees
constexpr double leastSpread = 1e-12; // of two values, relative to the larger one

double cross(const QPointF& a, const QPointF& b) {
  return a.x() * b.y() - a.y() * b.x();
}

double scaled(double value, AxisScale scale) {
  return scale == AxisScale::Logarithmic ? std::log10(value) : value;
}

double unscaled(double value, AxisScale scale) {
  return scale == AxisScale::Logarithmic ? std::pow(10.0, value) : value;
}

bool isFinite(const QPointF& point) {
  return std::isfinite(point.x()) && std::isfinite(point.y());
}

} // namespace

AxisFault faultOf(const AxisMarks& marks) {
  if (!std::isfinite(marks.firstValue) || !std::isfinite(marks.secondValue) ||
      !std::isfinite(marks.secondValue - marks.firstValue))
    return AxisFault::NoNumber;
  if (!(QLineF(marks.first, marks.second).length() >= 1))
    return AxisFault::SamePlace;
  if (marks.scale == AxisScale::Logarithmic && (marks.firstValue <= 0 || marks.secondValue <= 0))
    return AxisFault::NotPositive;
  const double first = scaled(marks.firstValue, marks.scale);
  const double second = scaled(marks.secondValue, marks.scale);
  if (std::abs(second - first) <= leastSpread * std::max(std::abs(first), std::abs(second)))
    return AxisFault::SameValue;
  return AxisFault::None;
}

std::optional<GraphMap> GraphMap::fromAxes(const AxisMarks& x, const AxisMarks& y) {
  if (faultOf(x) != AxisFault::None || faultOf(y) != AxisFault::None)
    return std::nullopt;
  const QLineF xLine(x.first, x.second), yLine(y.first, y.second);
  const double area = std::abs(cross(xLine.p2() - xLine.p1(), yLine.p2() - yLine.p1()));
  if (area < leastSine * xLine.length() * yLine.length())
    return std::nullopt;
  return GraphMap(x, y);
}

GraphMap::Axis GraphMap::axisOf(const AxisMarks& marks) {
  const double start = scaled(marks.firstValue, marks.scale);
  return {marks.first, marks.second - marks.first, start,
          scaled(marks.secondValue, marks.scale) - start, marks.scale};
}

GraphMap::GraphMap(const AxisMarks& x, const AxisMarks& y)
    : m_x(axisOf(x)), m_y(axisOf(y)), m_cross(cross(m_x.direction, m_y.direction)) {}

QPointF GraphMap::toValues(const QPointF& pixel) const {
  // Lines of one x run in the direction of the y axis, wherever that axis was marked.
  const double a = cross(pixel - m_x.origin, m_y.direction) / m_cross;
  const double b = cross(m_x.direction, pixel - m_y.origin) / m_cross;
  return {unscaled(m_x.start + a * m_x.length, m_x.scale),
          unscaled(m_y.start + b * m_y.length, m_y.scale)};
}

QPointF GraphMap::toPicture(const QPointF& values) const {
  const double a = (scaled(values.x(), m_x.scale) - m_x.start) / m_x.length;
  const double b = (scaled(values.y(), m_y.scale) - m_y.start) / m_y.length;
  // The line of this x, and the line of this y; where they meet.
  const QPointF onX = m_x.origin + a * m_x.direction;
  const QPointF onY = m_y.origin + b * m_y.direction;
  return onX + cross(m_x.direction, onY - onX) / m_cross * m_y.direction;
}

double GraphMap::alongX(const QPointF& pixel) const {
  const double length = std::hypot(m_x.direction.x(), m_x.direction.y());
  const double forward = m_x.length > 0 ? 1 : -1; // x may grow against the marks
  return forward * length * cross(pixel - m_x.origin, m_y.direction) / m_cross;
}

std::vector<QPointF> graphValues(const GraphMap& map, const QVector<QPointF>& pixels) {
  struct Placed {
    double along;
    QPointF pixel;
  };
  std::vector<Placed> placed;
  placed.reserve(static_cast<std::size_t>(pixels.size()));
  for (const QPointF& pixel : pixels)
    if (isFinite(map.toValues(pixel)))
      placed.push_back({map.alongX(pixel), pixel});
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& a, const Placed& b) { return a.along < b.along; });

  std::vector<QPointF> values;
  for (std::size_t i = 0; i < placed.size();) {
    QPointF sum;
    std::size_t end = i;
    for (; end < placed.size() && placed[end].along - placed[i].along < sameX; ++end)
      sum += placed[end].pixel;
    const QPointF value = map.toValues(sum / static_cast<double>(end - i));
    // Next to a large offset, x may have no digits left for a tenth of a pixel.
    if (values.empty() || value.x() > values.back().x())
      values.push_back(value);
    i = end;
  }
  return values;
}
