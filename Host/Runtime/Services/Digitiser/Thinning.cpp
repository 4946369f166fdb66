#include "Services/Digitiser/Thinning.h"

#include "Services/Digitiser/CurveTracer.h"
#include "Services/Digitiser/GraphMap.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double areaShare = 0.0008; // of the area for each pixel of thinning

double distanceTo(const QLineF& line, const QPointF& point) {
  const QPointF way = line.p2() - line.p1();
  const double square = QPointF::dotProduct(way, way);
  const double part =
      square > 0 ? qBound(0.0, QPointF::dotProduct(point - line.p1(), way) / square, 1.0) : 0;
  return QLineF(line.p1() + part * way, point).length();
}

double areaBelow(const QPointF& a, const QPointF& b) {
  return (b.x() - a.x()) * (a.y() + b.y()) / 2;
}

/// A line in the picture, and as the straight lines between its values.
class Chords {
public:
  Chords(const QVector<QPointF>& line, double tolerance, const GraphMap* map);
  /// Whether the points between two others can be left out. What straight lines before have added
  /// to the area counts, so that the area up to any point is kept.
  bool hold(int from, int to) const;
  void take(int from, int to) { m_excess += excess(from, to); }

private:
  double excess(int from, int to) const {
    return areaBelow(m_values[from], m_values[to]) - (m_areas[to] - m_areas[from]);
  }
  QPointF onChord(int from, int to, int i) const; ///< in the picture, at the values' x

  const QVector<QPointF>& m_line;
  double m_tolerance;
  const GraphMap* m_map;
  QVector<QPointF> m_values;
  QVector<double> m_areas, m_sizes; ///< up to each point, and their amounts
  double m_excess = 0;
};

Chords::Chords(const QVector<QPointF>& line, double tolerance, const GraphMap* map)
    : m_line(line), m_tolerance(tolerance), m_map(map) {
  for (const QPointF& point : line)
    m_values.append(map ? map->toValues(point) : point);
  const bool isFinite = std::all_of(m_values.begin(), m_values.end(), [](const QPointF& value) {
    return std::isfinite(value.x()) && std::isfinite(value.y());
  });
  if (!isFinite) {
    m_map = nullptr;
    m_values = line;
  }
  double area = 0, size = 0;
  for (int i = 0; i < line.size(); ++i) {
    const double one = m_map && i > 0 ? areaBelow(m_values[i - 1], m_values[i]) : 0;
    m_areas.append(area += one);
    m_sizes.append(size += std::abs(one));
  }
}

QPointF Chords::onChord(int from, int to, int i) const {
  const QPointF &a = m_values[from], &b = m_values[to];
  const double part = b.x() != a.x() ? (m_values[i].x() - a.x()) / (b.x() - a.x()) : 0.5;
  const QPointF value = a + qBound(0.0, part, 1.0) * (b - a);
  return m_map ? m_map->toPicture(value) : value;
}

bool Chords::hold(int from, int to) const {
  if (to - from < 2)
    return true;
  if (m_map && std::abs(m_excess + excess(from, to)) > areaShare * m_tolerance * m_sizes[to])
    return false;
  QPointF last = m_line[from], at = onChord(from, to, from + 1);
  for (int i = from + 1; i < to; ++i) {
    const QPointF next = i + 1 < to ? onChord(from, to, i + 1) : m_line[to];
    if (std::min(distanceTo({last, at}, m_line[i]), distanceTo({at, next}, m_line[i])) >
        m_tolerance)
      return false;
    last = at;
    at = next;
  }
  return true;
}

/// Every so many pixels along the line, and the last.
QVector<int> sampled(const QVector<QPointF>& line, int step) {
  QVector<int> found;
  for (int i = 0; i < line.size(); ++i)
    if (i == 0 || i == line.size() - 1 || line[i].x() - line[found.last()].x() >= step)
      found.append(i);
  return found;
}

/// The farthest place that still can be reached: by doubled strides, then halved ones.
template <class Holds> int farthest(int from, int last, Holds holds) {
  int good = from + 1, stride = 1;
  while (good + stride <= last && holds(good + stride)) {
    good += stride;
    stride *= 2;
  }
  for (; stride > 0; stride /= 2)
    if (good + stride <= last && holds(good + stride))
      good += stride;
  return good;
}

} // namespace

QVector<QPointF> chosenPoints(const QVector<QPointF>& line, const TraceOptions& options,
                              const GraphMap* map) {
  QVector<QPointF> points;
  if (line.isEmpty())
    return points;
  const QVector<int> places = sampled(line, std::max(1, options.step));
  points.append(line.first());
  if (!(options.thinning > 0)) {
    for (int i = 1; i < places.size(); ++i)
      points.append(line[places[i]]);
    return points;
  }
  Chords chords(line, options.thinning, map);
  for (int i = 0; i + 1 < places.size();) {
    const int next =
        farthest(i, places.size() - 1, [&](int to) { return chords.hold(places[i], places[to]); });
    // Where even one step is too long, the columns between help.
    for (int at = places[i]; at < places[next];) {
      const int to = farthest(at, places[next], [&](int end) { return chords.hold(at, end); });
      chords.take(at, to);
      points.append(line[to]);
      at = to;
    }
    i = next;
  }
  return points;
}
