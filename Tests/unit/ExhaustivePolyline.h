#pragma once

#include "Services/Numerics/Curves.h"

#include <algorithm>
#include <cmath>
#include <vector>

// What fitted curves are measured with; it shares nothing with how they are found. For curves of
// ascending x.

/// y at x, on the straight lines between the points.
inline double heightAt(const Curve& curve, double x) {
  std::size_t i = 1;
  while (i + 1 < curve.size() && curve[i].x < x)
    ++i;
  const double slope = (curve[i].y - curve[i - 1].y) / (curve[i].x - curve[i - 1].x);
  return curve[i - 1].y + slope * (x - curve[i - 1].x);
}

/// The greatest vertical distance of two curves over the same range: it is at a corner of either.
inline double greatestDistance(const Curve& a, const Curve& b) {
  double greatest = 0;
  for (const auto& [of, from] : {std::pair(&a, &b), std::pair(&b, &a)})
    for (const CurvePoint& point : *of)
      greatest = std::max(greatest, std::abs(heightAt(*from, point.x) - point.y));
  return greatest;
}

/// Points of the curve at x values in equal distances: how one would place corners without thought.
inline Curve equalWidths(const Curve& curve, int segments) {
  Curve made;
  for (int i = 0; i <= segments; ++i) {
    const double t = double(i) / segments;
    const double x = curve.front().x * (1 - t) + curve.back().x * t;
    made.push_back({x, heightAt(curve, x)});
  }
  return made;
}

/// The smallest greatest distance that polylines of `segments` pieces from end to end have, by
/// trying all whose corners lie on a grid: `columns` places in each interval of the curve but the
/// first and the last, times `rows` heights up and down from the curve as far as `reach`.
inline double exhaustiveDistance(const Curve& curve, int segments, int columns, int rows,
                                 double reach) {
  struct Corner {
    CurvePoint point;
    double distance;
    double best; ///< of the polylines that end here
  };
  std::vector<Corner> corners;
  for (std::size_t i = 1; i + 1 < curve.size(); ++i)
    for (int column = 0; column < (i + 2 < curve.size() ? columns : 1); ++column) {
      const double x = curve[i].x + (curve[i + 1].x - curve[i].x) * column / columns;
      const double y = heightAt(curve, x);
      for (int row = -rows; row <= rows; ++row) {
        const double up = reach * row / rows;
        corners.push_back({{x, y + up}, std::abs(up), INFINITY});
      }
    }
  const auto pieceDistance = [&](const CurvePoint& a, const CurvePoint& b) {
    double greatest = 0;
    const double slope = (b.y - a.y) / (b.x - a.x);
    for (const CurvePoint& point : curve)
      if (point.x > a.x && point.x < b.x)
        greatest = std::max(greatest, std::abs(a.y + slope * (point.x - a.x) - point.y));
    return greatest;
  };
  double best = pieceDistance(curve.front(), curve.back());
  for (Corner& corner : corners)
    corner.best = std::max(corner.distance, pieceDistance(curve.front(), corner.point));
  for (int pieces = 2; pieces <= segments; ++pieces) {
    for (const Corner& corner : corners)
      if (corner.best < best)
        best = std::min(best, std::max(corner.best, pieceDistance(corner.point, curve.back())));
    if (pieces == segments)
      break;
    // From right to left, so that what a corner is reached from has one piece less.
    for (auto to = corners.rbegin(); to != corners.rend(); ++to)
      for (const Corner& from : corners) {
        if (from.point.x >= to->point.x)
          break;
        if (std::max(from.best, to->distance) < to->best)
          to->best = std::min(
              to->best, std::max({from.best, to->distance, pieceDistance(from.point, to->point)}));
      }
  }
  return best;
}
