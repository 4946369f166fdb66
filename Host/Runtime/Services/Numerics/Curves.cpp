#include "Services/Numerics/Curves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

/// Reads a curve at places that only grow.
class Reader {
public:
  explicit Reader(const Curve& ordered) : m_points(ordered) {}

  CurvePoint at(double x) {
    while (m_next < m_points.size() && m_points[m_next].x <= x)
      ++m_next;
    if (m_next == 0)
      return {x, m_points.front().y};
    const CurvePoint& before = m_points[m_next - 1];
    if (m_next == m_points.size())
      return {x, before.y};
    return {x, valueOnLine(before, m_points[m_next], x)};
  }

private:
  const Curve& m_points;
  std::size_t m_next = 0;
};

} // namespace

double valueOnLine(const CurvePoint& a, const CurvePoint& b, double x) {
  const double t = (x - a.x) / (b.x - a.x);
  return a.y * (1 - t) + b.y * t; // between a.y and b.y, whatever is rounded
}

Curve orderedByX(Curve curve) {
  std::stable_sort(curve.begin(), curve.end(),
                   [](const CurvePoint& a, const CurvePoint& b) { return a.x < b.x; });
  return curve;
}

Curve resampled(const Curve& curve, int count) {
  const Curve ordered = orderedByX(curve);
  if (ordered.empty())
    return {};
  const double first = ordered.front().x;
  const double last = ordered.back().x;
  Reader reader(ordered);
  Curve made = {reader.at(first)};
  if (first == last)
    return made;
  for (int i = 1; i < count; ++i)
    made.push_back(
        reader.at(i == count - 1 ? last : first + (last - first) * (double(i) / (count - 1))));
  return made;
}

Curve resampled(const Curve& curve, double interval, double offset, int most) {
  const Curve ordered = orderedByX(curve);
  if (ordered.empty())
    return {};
  const double length = ordered.back().x - ordered.front().x;
  Reader reader(ordered);
  Curve made;
  for (int i = 0; i < most; ++i) {
    const double x = offset + i * interval;
    // The last x counts as reached even where the sum of many intervals has been rounded up.
    if (x > length * (1 + 1e-12))
      break;
    made.push_back(reader.at(std::min(ordered.front().x + x, ordered.back().x)));
  }
  return made;
}

std::vector<double> valuesAt(const Curve& curve, double x) {
  std::vector<double> values;
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const CurvePoint& point = curve[i];
    if (i > 0) {
      const CurvePoint& before = curve[i - 1];
      if ((before.x < x && x < point.x) || (point.x < x && x < before.x))
        values.push_back(valueOnLine(before, point, x));
      if (before.x == point.x && before.y == point.y)
        continue;
    }
    if (point.x == x)
      values.push_back(point.y);
  }
  return values;
}

Curve runningIntegral(const Curve& curve) {
  Curve made;
  made.reserve(curve.size());
  double area = 0;
  for (std::size_t i = 0; i < curve.size(); ++i) {
    if (i > 0)
      area += (curve[i].x - curve[i - 1].x) * (curve[i].y / 2 + curve[i - 1].y / 2);
    made.push_back({curve[i].x, area});
  }
  return made;
}
