#include "PlotCurve.h"

#include <qwt_clipper.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// Far beyond any screen, and squares of it are still exact enough to clip with.
constexpr double farthest = 1e15;

/// What a logarithmic axis has no place for lies far below its low end.
double pixel(const QwtScaleMap& map, double value) {
  const double place = map.transform(value);
  if (std::isnan(place))
    return map.p2() > map.p1() ? -farthest : farthest;
  return std::clamp(place, -farthest, farthest);
}

/// A level of many points is one line.
void append(QPolygonF* path, const QPointF& point) {
  const int count = path->size();
  if (count > 1 && point.y() == path->at(count - 1).y() && point.y() == path->at(count - 2).y() &&
      (point.x() >= path->at(count - 1).x()) ==
          (path->at(count - 1).x() >= path->at(count - 2).x()))
    path->last() = point;
  else
    path->append(point);
}

/// Lines along the pixels get sharp edges; an edge that leans by less than anybody sees is one.
void snap(QPolygonF* path) {
  constexpr double level = 1e-6; // a flat curve of many points climbs by little more at each
  constexpr double upright = 1e-3;
  const QPolygonF exact = *path;
  for (int i = 1; i < exact.size(); ++i) {
    const QPointF difference = exact[i] - exact[i - 1];
    for (QPointF* point : {&(*path)[i - 1], &(*path)[i]}) {
      if (std::abs(difference.y()) < level)
        point->ry() = std::round(point->y());
      if (std::abs(difference.x()) < upright)
        point->rx() = std::round(point->x());
    }
  }
}

} // namespace

PlotCurve::PlotCurve(const double* x, const double* y, std::size_t count, std::size_t stride) {
  m_points.reserve(count);
  bool inGap = true;
  for (std::size_t i = 0; i < count; ++i) {
    const QPointF point(x[i * stride], y[i * stride]);
    if (!std::isfinite(point.x()) || !std::isfinite(point.y())) {
      inGap = true;
      continue;
    }
    if (inGap)
      m_starts.push_back(m_points.size());
    inGap = false;
    m_ascending = m_ascending && (m_points.empty() || m_points.back().x() <= point.x());
    m_points.push_back(point);
  }
}

/// Behind the last of the points from `from` on that stand in its column of pixels.
std::size_t PlotCurve::columnEnd(std::size_t from, std::size_t end, const QwtScaleMap& x) const {
  const double column = std::round(pixel(x, m_points[from].x()));
  const auto isInColumn = [&](const QPointF& point) {
    return std::round(pixel(x, point.x())) == column;
  };
  const auto first = m_points.begin();
  if (!m_ascending)
    return std::find_if_not(first + from, first + end, isInColumn) - first;
  std::size_t stride = 1; // a column rarely holds more than a small part of all points
  while (from + stride < end && isInColumn(m_points[from + stride]))
    stride *= 2;
  return std::partition_point(first + from + stride / 2, first + std::min(from + stride, end),
                              isInColumn) -
         first;
}

/// How often the line turns up or down, counted to two.
int PlotCurve::turns(std::size_t begin, std::size_t end) const {
  int found = 0;
  double last = 0;
  for (std::size_t i = begin + 1; i < end && found < 2; ++i)
    if (const double rise = m_points[i].y() - m_points[i - 1].y(); rise != 0) {
      found += rise * last < 0;
      last = rise;
    }
  return found;
}

void PlotCurve::keepColumn(std::size_t begin, std::size_t end, const QwtScaleMap& x,
                           const QwtScaleMap& y, QPolygonF* path) const {
  const auto [lowest, highest] =
      std::minmax_element(m_points.begin() + begin, m_points.begin() + end,
                          [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
  const auto row = [&](std::size_t index) { return pixel(y, m_points[index].y()); };
  const std::size_t low = lowest - m_points.begin();
  const std::size_t high = highest - m_points.begin();
  const auto [upper, lower] = std::minmax({row(begin), row(end - 1)});
  // A peak that leans within its column would be drawn pale, and so would what goes up and down
  // more than once: where that is dense, some columns would be paler than others.
  const bool hasPeak = row(low) > lower + 1 || row(high) < upper - 1 || turns(begin, end) > 1;
  std::size_t kept[] = {begin, std::min(low, high), std::max(low, high), end - 1};
  const std::size_t* keptEnd = std::unique(kept, std::end(kept));
  for (const std::size_t* index = kept; index != keptEnd; ++index) {
    const double column = pixel(x, m_points[*index].x());
    append(path, {hasPeak ? std::round(column) : column, row(*index)});
  }
}

std::vector<QPolygonF> PlotCurve::paths(const QwtScaleMap& x, const QwtScaleMap& y,
                                        const QRectF& area) const {
  std::size_t begin = 0;
  std::size_t end = m_points.size();
  if (m_ascending) { // one point more on either side, for the lines that lead out of sight
    const double low = std::min(x.s1(), x.s2());
    const double high = std::max(x.s1(), x.s2());
    const auto left = std::partition_point(m_points.begin(), m_points.end(),
                                           [&](const QPointF& point) { return point.x() < low; });
    const auto right = std::partition_point(
        left, m_points.end(), [&](const QPointF& point) { return point.x() <= high; });
    begin = std::max<std::size_t>(left - m_points.begin(), 1) - 1;
    end = std::min<std::size_t>(right - m_points.begin() + 1, m_points.size());
  }
  std::vector<QPolygonF> result;
  auto nextStart = std::upper_bound(m_starts.begin(), m_starts.end(), begin);
  while (begin < end) {
    const std::size_t stretchEnd = nextStart == m_starts.end() ? end : std::min(*nextStart++, end);
    QPolygonF path;
    while (begin < stretchEnd) {
      const std::size_t behind = columnEnd(begin, stretchEnd, x);
      keepColumn(begin, behind, x, y, &path);
      begin = behind;
    }
    snap(&path);
    if (path.size() == 1) {
      // Many single points in one place are one dot.
      if (area.contains(path.first()) && (result.empty() || result.back() != path))
        result.push_back(path);
    } else if (path = QwtClipper::clipPolygonF(area, path); !path.isEmpty()) {
      result.push_back(path);
    }
  }
  return result;
}
