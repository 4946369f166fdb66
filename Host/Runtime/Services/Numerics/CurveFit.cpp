#include "Services/Numerics/CurveFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <queue>

namespace {

/// x that differ by less, as part of the range, are the same.
constexpr double sameX = 1e-12;
/// A curve that leaves the straight line by less, as part of its y range, is that line and noise.
constexpr double straight = 1e-12;
/// Bisection ends when the distance is known so well, and at what is rounding alone.
constexpr double distanceTolerance = 1e-10;
constexpr double leastDistance = 1e-13;

/// A line through a point of it.
struct Line {
  CurvePoint point;
  double slope = 0;

  double at(double x) const { return point.y + slope * (x - point.x); }
};

double slopeBetween(const CurvePoint& a, const CurvePoint& b) {
  return (b.y - a.y) / (b.x - a.x);
}

/// Positive where c lies to the left of the way from a to b.
double turn(const CurvePoint& a, const CurvePoint& b, const CurvePoint& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

enum Side { Lower, Upper };

Side opposite(Side side) {
  return side == Lower ? Upper : Lower;
}

/// 1 or -1: the direction in which a wall is left.
double outwards(Side side) {
  return side == Lower ? -1 : 1;
}

/// Curve ± distance; no distance at both ends, where the polyline has to pass.
class Corridor {
public:
  Corridor(const Curve& curve, double distance) : m_curve(curve), m_distance(distance) {}

  CurvePoint wall(Side side, std::size_t i) const {
    const CurvePoint& point = m_curve[i];
    const bool isEnd = i == 0 || i + 1 == m_curve.size();
    return isEnd ? point : CurvePoint{point.x, point.y + outwards(side) * m_distance};
  }

private:
  const Curve& m_curve;
  double m_distance;
};

/// The corners of a wall that a line from the left can still touch: a chain that bulges into the
/// corridor.
class Wall {
public:
  explicit Wall(Side side) : m_side(side) {}

  void clear() {
    m_chain.clear();
    m_first = 0;
  }

  void add(const CurvePoint& corner) {
    while (m_chain.size() - m_first >= 2 &&
           outwards(m_side) * turn(m_chain[m_chain.size() - 2], corner, m_chain.back()) >= 0)
      m_chain.pop_back();
    m_chain.push_back(corner);
  }

  /// The line through `end` that touches this wall and keeps within it; `end` is on the other wall,
  /// farther right than all corners. Corners before the one it touches are forgotten, since lines
  /// to come turn about later ones.
  std::optional<Line> touchingLine(const CurvePoint& end) {
    while (m_first + 1 < m_chain.size() &&
           outwards(m_side) * turn(m_chain[m_first], end, m_chain[m_first + 1]) <= 0)
      ++m_first;
    if (m_first == m_chain.size() || m_chain[m_first].x >= end.x)
      return std::nullopt;
    return Line{end, slopeBetween(m_chain[m_first], end)};
  }

private:
  Side m_side;
  Curve m_chain;
  std::size_t m_first = 0;
};

/// All lines that pass between the walls seen so far, known by the two extreme ones: each touches
/// one wall first and then, at its point, the other, which names it.
class Sight {
public:
  explicit Sight(const Corridor& corridor) : m_corridor(corridor) {}

  /// Looks from a point.
  void start(const CurvePoint& from) {
    m_walls[Lower].add(from);
    m_walls[Upper].add(from);
  }

  /// Looks from where the extreme line of a wall leaves the corridor through the other one, between
  /// the corners `next` - 1 and `next`; gives the x of that place.
  double restart(Side touched, std::size_t next) {
    const Side left = opposite(touched);
    const Line line = *m_extremes[touched];
    const CurvePoint before = m_corridor.wall(left, next - 1);
    const CurvePoint behind = m_corridor.wall(left, next);
    const double inside = std::abs(before.y - line.at(before.x));
    const double outside = std::abs(behind.y - line.at(behind.x));
    const double t = inside / (inside + outside);
    const CurvePoint exit = {before.x + t * (behind.x - before.x),
                             before.y + t * (behind.y - before.y)};
    for (const Side side : {Lower, Upper}) {
      m_walls[side].clear();
      m_extremes[side].reset();
    }
    for (std::size_t i = m_touched[touched]; i < next; ++i)
      m_walls[touched].add(m_corridor.wall(touched, i));
    m_extremes[left] = m_walls[touched].touchingLine(exit);
    m_touched[left] = next;
    m_walls[left].add(exit);
    return exit.x;
  }

  /// The wall that bars the way to corner i for all lines.
  std::optional<Side> barred(std::size_t i) const {
    for (const Side side : {Lower, Upper})
      if (const std::optional<Line>& farthest = m_extremes[opposite(side)])
        if (isBeyond(side, *farthest, m_corridor.wall(side, i)))
          return side;
    return std::nullopt;
  }

  /// Takes in corner i of both walls.
  void advance(std::size_t i) {
    const CurvePoint corners[] = {m_corridor.wall(Lower, i), m_corridor.wall(Upper, i)};
    for (const Side side : {Lower, Upper}) {
      std::optional<Line>& extreme = m_extremes[side];
      if (extreme && !isBeyond(side, *extreme, corners[side]))
        continue;
      extreme = m_walls[opposite(side)].touchingLine(corners[side]);
      m_touched[side] = i;
    }
    m_walls[Lower].add(corners[Lower]);
    m_walls[Upper].add(corners[Upper]);
  }

  Line extreme(Side touched) const { return *m_extremes[touched]; }

  /// A line to the end, where all extreme ones meet.
  Line last(const CurvePoint& end) const {
    const std::optional<Line>& line = m_extremes[m_extremes[Lower] ? Lower : Upper];
    return {end, line ? line->slope : 0};
  }

private:
  static bool isBeyond(Side side, const Line& line, const CurvePoint& corner) {
    return outwards(side) * (line.at(corner.x) - corner.y) > 0;
  }

  const Corridor& m_corridor;
  Wall m_walls[2] = {Wall(Lower), Wall(Upper)};
  std::optional<Line> m_extremes[2];
  std::size_t m_touched[2] = {0, 0};
};

/// Where two lines cross between two x that they pass in different order.
CurvePoint crossing(const Line& a, const Line& b, double left, double right) {
  const double atLeft = b.at(left) - a.at(left);
  const double atRight = b.at(right) - a.at(right);
  const double part = atLeft == atRight ? 0.5 : atLeft / (atLeft - atRight);
  const double x = left + std::clamp(part, 0.0, 1.0) * (right - left);
  return {x, a.at(x)};
}

/// A polyline of at most `mostLinks` pieces between the end points that stays within `distance` of
/// the curve, if there is one.
std::optional<Curve> threaded(const Curve& curve, double distance, std::size_t mostLinks) {
  const Corridor corridor(curve, distance);
  Sight sight(corridor);
  sight.start(curve.front());
  Curve corners = {curve.front()};
  Line previous;
  double left = 0;  // the next piece crosses `previous` from here …
  double right = 0; // … to here
  std::size_t i = 1;
  for (std::size_t links = 1; links <= mostLinks; ++links) {
    std::optional<Side> barred;
    while (i < curve.size() && !(barred = sight.barred(i)))
      sight.advance(i++);
    const Line line = barred ? sight.extreme(opposite(*barred)) : sight.last(curve.back());
    if (links > 1)
      corners.push_back(crossing(previous, line, left, right));
    if (!barred) {
      corners.push_back(curve.back());
      return corners;
    }
    previous = line;
    left = line.point.x;
    right = sight.restart(opposite(*barred), i);
  }
  return std::nullopt;
}

/// The same polyline with slopes below `slope` raised to it, in no more pieces, where the ends are
/// at least that steep on average. Seen along that slope it is the running maximum, cut at the
/// height of the end. Where no slope of a curve is smaller, its corridor never falls in that view,
/// and the polyline stays inside.
Curve withLeastSlope(const Curve& corners, double slope) {
  const auto height = [slope](const CurvePoint& point) { return point.y - slope * point.x; };
  const double top = height(corners.back());
  double reached = height(corners.front());
  Curve made = {corners.front()};
  const auto put = [&](std::size_t i, double at) {
    const CurvePoint& a = corners[i - 1];
    const CurvePoint& b = corners[i];
    const double x = a.x + (at - height(a)) / (height(b) - height(a)) * (b.x - a.x);
    made.push_back({x, at + slope * x});
  };
  for (std::size_t i = 1; i < corners.size() && reached < top; ++i) {
    if (height(corners[i]) <= reached)
      continue;
    if (made.back().x < corners[i - 1].x)
      put(i, reached);
    reached = height(corners[i]);
    reached < top ? made.push_back(corners[i]) : put(i, top);
  }
  if (made.back().x >= corners.back().x)
    made.pop_back();
  made.push_back(corners.back());
  return made;
}

Curve mirrored(Curve curve) {
  for (CurvePoint& point : curve)
    point.y = -point.y;
  return curve;
}

/// The polyline with slopes that the curve has.
Curve withSlopesOf(const Curve& curve, const Curve& corners) {
  double least = slopeBetween(curve[0], curve[1]);
  double greatest = least;
  for (std::size_t i = 2; i < curve.size(); ++i) {
    const double slope = slopeBetween(curve[i - 1], curve[i]);
    least = std::min(least, slope);
    greatest = std::max(greatest, slope);
  }
  const Curve raised = withLeastSlope(corners, least);
  return mirrored(withLeastSlope(mirrored(raised), -greatest));
}

/// Without corners that coincide with the one before or with the end.
Curve withoutCoinciding(const Curve& corners) {
  Curve made = {corners.front()};
  for (std::size_t i = 1; i + 1 < corners.size(); ++i)
    if (corners[i].x - made.back().x > sameX && corners.back().x - corners[i].x > sameX)
      made.push_back(corners[i]);
  made.push_back(corners.back());
  return made;
}

/// The same line in `links` pieces: those that are longest are cut, in even parts.
Curve cutInto(const Curve& corners, std::size_t links) {
  const std::size_t given = corners.size() - 1;
  std::vector<int> parts(given, 1);
  std::priority_queue<std::pair<double, std::size_t>> longest;
  for (std::size_t i = 0; i < given; ++i)
    longest.push({corners[i + 1].x - corners[i].x, i});
  for (std::size_t more = given; more < links; ++more) {
    const std::size_t i = longest.top().second;
    longest.pop();
    ++parts[i];
    longest.push({(corners[i + 1].x - corners[i].x) / parts[i], i});
  }
  Curve made = {corners.front()};
  for (std::size_t i = 0; i < given; ++i) {
    for (int part = 1; part < parts[i]; ++part) {
      const double x = corners[i].x + (corners[i + 1].x - corners[i].x) * (double(part) / parts[i]);
      made.push_back({x, valueOnLine(corners[i], corners[i + 1], x)});
    }
    made.push_back(corners[i + 1]);
  }
  return made;
}

/// The closest polyline, for a curve over 0 to 1 that is 0 at both ends and at most 1 beside it.
Curve closest(const Curve& curve, std::size_t mostLinks) {
  double impossible = 0;
  double possible = 1; // the straight line
  Curve best = {curve.front(), curve.back()};
  while (possible - impossible > distanceTolerance * possible && possible > leastDistance) {
    const double distance = (impossible + possible) / 2;
    if (std::optional<Curve> found = threaded(curve, distance, mostLinks)) {
      best = std::move(*found);
      possible = distance;
    } else {
      impossible = distance;
    }
  }
  return withoutCoinciding(withSlopesOf(curve, best));
}

/// By ascending x, points of the same x made one.
Curve asFunction(const Curve& curve) {
  const Curve ordered = orderedByX(curve);
  Curve made;
  if (ordered.empty())
    return made;
  const double same = (ordered.back().x - ordered.front().x) * sameX;
  double lowest = 0;
  double highest = 0;
  for (const CurvePoint& point : ordered) {
    if (made.empty() || point.x - made.back().x > same) {
      made.push_back(point);
      lowest = highest = point.y;
    }
    lowest = std::min(lowest, point.y);
    highest = std::max(highest, point.y);
    made.back().y = lowest / 2 + highest / 2;
  }
  if (made.size() > 1) {
    made.front() = ordered.front();
    made.back() = ordered.back();
  }
  return made;
}

} // namespace

Curve fitPolyline(const Curve& curve, int segments) {
  const Curve points = asFunction(curve);
  const std::size_t links = static_cast<std::size_t>(std::max(segments, 1));
  if (points.size() <= links + 1)
    return points;

  // Distances from the straight line between the ends, the largest of them 1.
  const CurvePoint first = points.front();
  const CurvePoint last = points.back();
  const double range = last.x - first.x;
  const auto chord = [&](double u) { return first.y * (1 - u) + last.y * u; };
  Curve scaled;
  double height = 0;
  double lowest = first.y;
  double highest = first.y;
  for (const CurvePoint& point : points) {
    const double u = (point.x - first.x) / range;
    scaled.push_back({u, point.y - chord(u)});
    height = std::max(height, std::abs(scaled.back().y));
    lowest = std::min(lowest, point.y);
    highest = std::max(highest, point.y);
  }
  scaled.front() = {0, 0};
  scaled.back() = {1, 0};
  Curve corners = {scaled.front(), scaled.back()};
  if (height > straight * (highest - lowest)) {
    for (CurvePoint& point : scaled)
      point.y /= height;
    corners = closest(scaled, links);
  }
  corners = cutInto(corners, links);

  Curve made = {first};
  for (std::size_t i = 1; i < links; ++i)
    made.push_back({first.x + corners[i].x * range, chord(corners[i].x) + corners[i].y * height});
  made.push_back(last);
  return made;
}
