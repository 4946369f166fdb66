#pragma once

#include "Services/Digitiser/Stroke.h"

#include <algorithm>
#include <array>
#include <vector>

/// Columns of a stroke, in the order in which they were walked.
using Arm = std::vector<Run>;

constexpr std::size_t slopeColumns = 8; // from which the direction is taken
constexpr std::size_t leastArm = 4;     // columns of a stroke, as opposed to a scrap
constexpr double endPlay = 0.7;         // pixels that a column may leave the way

/// The parabola, or the straight line, that is closest to the middles of some runs.
class Way {
public:
  Way(const Arm& runs, bool isStraight);
  double at(double x) const;
  double misfit() const { return m_misfit; } ///< pixels across the way, on an average

private:
  double m_origin = 0;
  double m_unit = 1;
  std::array<double, 3> m_parts{};
  double m_misfit = 0;
};

/// Of the last `count` columns.
template <class Value> double median(const Arm& arm, std::size_t count, Value value) {
  std::vector<double> values;
  for (std::size_t i = arm.size() - std::min(count, arm.size()); i < arm.size(); ++i)
    values.push_back(value(arm[i]));
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Rows by which the stroke sinks at its end, for each column in the walk's direction.
double slopeOf(const Arm& path);
inline double inkOf(const Run& run) {
  return run.ink;
}
/// The rows that the stroke covers in most of its last columns.
double usualLength(const Arm& path);

/// The columns of an arm that tell where it leads: next to a crossing both strokes have a part in
/// the edges.
Arm telling(const Arm& arm, std::size_t count);
/// The last columns of the path that tell where it leads, the last one first.
Arm lastOf(const Arm& path, std::size_t count);
/// From one arm to another. Both begin at the crossing.
Way wayThrough(const Arm& in, const Arm& out);
/// How badly two arms suit each other as one stroke, in pixels.
double misfit(const Arm& in, const Arm& out);
/// Scraps beside the stroke are no branches of it, and what parts for a column only is no two.
void dropScraps(std::vector<Arm>* arms);

/// Takes noise off the middles of a path, and what pieces of other lines have added.
void smooth(Arm* path);
