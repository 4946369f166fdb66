#include "Services/Digitiser/CurveArm.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

namespace {

constexpr std::size_t smoothReach = 4; // columns to either side that tell a middle
constexpr double widthWeight = 0.25;   // of a pixel of width, against one off the way

double dot(const std::vector<double>& a, const std::vector<double>& b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

} // namespace

double slopeOf(const Arm& path) {
  if (path.size() < 2)
    return 0;
  const Run& last = path.back();
  std::size_t i = path.size() - 1;
  while (i > 0 && std::abs(path[i].x - last.x) < static_cast<int>(slopeColumns))
    --i;
  return (last.middle - path[i].middle) / std::max(1, std::abs(last.x - path[i].x));
}

double usualLength(const Arm& path) {
  return median(path, slopeColumns, [](const Run& run) { return double(run.length()); });
}

Way::Way(const Arm& runs, bool isStraight) {
  const auto [least, most] = std::minmax_element(
      runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.x < b.x; });
  m_origin = (least->x + most->x) / 2.0;
  m_unit = std::max(1.0, (most->x - least->x) / 2.0);
  // Against polynomials that are at right angles over these places, each part stands alone.
  std::array<std::vector<double>, 3> shapes;
  const std::size_t count = isStraight ? 2 : 3;
  std::vector<double> rest;
  std::array<std::array<double, 3>, 3> powers{}; // of each shape
  for (const Run& run : runs)
    rest.push_back(run.middle);
  for (std::size_t degree = 0; degree < count; ++degree) {
    std::vector<double>& shape = shapes[degree];
    for (const Run& run : runs)
      shape.push_back(std::pow((run.x - m_origin) / m_unit, double(degree)));
    powers[degree][degree] = 1;
    for (std::size_t lower = 0; lower < degree; ++lower) {
      const double square = dot(shapes[lower], shapes[lower]);
      if (square < 1e-9)
        continue;
      const double part = dot(shape, shapes[lower]) / square;
      for (std::size_t i = 0; i < shape.size(); ++i)
        shape[i] -= part * shapes[lower][i];
      for (std::size_t power = 0; power < 3; ++power)
        powers[degree][power] -= part * powers[lower][power];
    }
    const double square = dot(shape, shape);
    if (square < 1e-9)
      continue;
    const double part = dot(rest, shape) / square;
    for (std::size_t i = 0; i < rest.size(); ++i)
      rest[i] -= part * shape[i];
    for (std::size_t power = 0; power < 3; ++power)
      m_parts[power] += part * powers[degree][power];
  }
  double squares = 0;
  for (const double off : rest)
    squares += off * off;
  const double slope = m_parts[1] / m_unit;
  m_misfit = std::sqrt(squares / double(runs.size()) / (1 + slope * slope));
}

double Way::at(double x) const {
  const double place = (x - m_origin) / m_unit;
  return m_parts[0] + place * (m_parts[1] + place * m_parts[2]);
}

Arm telling(const Arm& arm, std::size_t count) {
  const std::size_t skipped = arm.size() > leastArm ? 1 : 0;
  const std::size_t last = std::min(arm.size(), skipped + count);
  return Arm(arm.begin() + static_cast<std::ptrdiff_t>(skipped),
             arm.begin() + static_cast<std::ptrdiff_t>(last));
}

Arm lastOf(const Arm& path, std::size_t count) {
  return telling(Arm(path.rbegin(),
                     path.rbegin() + static_cast<std::ptrdiff_t>(std::min(path.size(), count + 1))),
                 count);
}

/// Width across the stroke.
static double widthOf(const Arm& arm) {
  const double rows = median(arm, arm.size(), inkOf);
  const double columns = std::max(1, std::abs(arm.back().x - arm.front().x));
  const double slope = (arm.back().middle - arm.front().middle) / columns;
  return rows / std::sqrt(1 + slope * slope);
}

Way wayThrough(const Arm& in, const Arm& out) {
  Arm all = in;
  all.insert(all.end(), out.begin(), out.end());
  return Way(all, in.size() < leastArm + 1 || out.size() < leastArm + 1);
}

double misfit(const Arm& in, const Arm& out) {
  return wayThrough(in, out).misfit() + widthWeight * std::abs(widthOf(in) - widthOf(out));
}

void dropScraps(std::vector<Arm>* arms) {
  std::vector<Arm> kept;
  for (Arm& arm : *arms) {
    const bool isKnown = std::any_of(kept.begin(), kept.end(), [&](const Arm& other) {
      return arm[std::min(arm.size(), other.size()) - 1].isSame(
          other[std::min(arm.size(), other.size()) - 1]);
    });
    if (arm.size() >= leastArm && !isKnown)
      kept.push_back(std::move(arm));
  }
  *arms = std::move(kept);
}

/// The columns around one, without it and what is hidden.
static Arm around(const Arm& path, std::size_t place, std::size_t reach) {
  Arm found;
  const std::size_t last = std::min(path.size(), place + reach + 1);
  for (std::size_t i = place - std::min(place, reach); i < last; ++i)
    if (i != place && !path[i].isCut)
      found.push_back(path[i]);
  return found;
}

void smooth(Arm* path) {
  const Arm found = *path;
  for (std::size_t i = 2; i + 2 < found.size(); ++i) {
    const Arm part = around(found, i, smoothReach);
    if (part.size() <= smoothReach)
      continue;
    const Way way(part, i < smoothReach || i + smoothReach >= found.size());
    const double off = std::abs(found[i].middle - way.at(found[i].x));
    const double slope = slopeOf(part);
    const bool isAlone = off > 4 * way.misfit() * std::hypot(1, slope) && way.misfit() <= endPlay;
    if (isAlone || off <= endPlay || (found[i].isCut && way.misfit() <= endPlay))
      (*path)[i].middle = way.at(found[i].x);
  }
}
