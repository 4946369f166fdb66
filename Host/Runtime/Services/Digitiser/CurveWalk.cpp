#include "Services/Digitiser/CurveWalk.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr std::size_t slopeColumns = 8; // from which the direction is taken
constexpr double leastOvershoot = 6;    // pixels by which a line across exceeds the stroke
constexpr double steepSlope = 1.5;      // from here on a gap may lie within a column
constexpr int mostMerged = 150;         // columns that strokes may run as one
constexpr std::size_t leastColumns = 3; // that tell a direction
constexpr std::size_t leastArm = 4;     // columns of a stroke, as opposed to a scrap
constexpr std::size_t shortestArms = 14, longestArms = 48; // columns that a branch is judged by
constexpr double mostWidening = 1.3;   // of a stroke that another joined for good
constexpr double longRows = 4;         // by which a line across lengthens a column
constexpr double endPlay = 0.7;        // pixels that the last columns may leave the way
constexpr std::size_t smoothReach = 4; // columns to either side that tell a middle
constexpr double steepTip = 4;         // from here on a stroke shows its own end
constexpr std::size_t mostHidden = 16; // columns at its end that a curve may lie upon a line
constexpr int armGap = 12;             // pixels that an arm may be hidden or broken
constexpr double widthWeight = 0.25;   // of a pixel of width, against one off the way
constexpr double mostMisfit = 1.2;     // pixels off the way, on an average, of a likely branch
constexpr double leastMargin = 0.12;   // by which a branch has to be likelier than the next

using Arm = std::vector<Run>;

/// Rows by which the stroke sinks for each column in the walk's direction.
double slopeOf(const Arm& path) {
  if (path.size() < 2)
    return 0;
  const Run& last = path.back();
  std::size_t i = path.size() - 1;
  while (i > 0 && std::abs(path[i].x - last.x) < static_cast<int>(slopeColumns))
    --i;
  return (last.middle - path[i].middle) / std::max(1, std::abs(last.x - path[i].x));
}

template <class Value> double median(const Arm& arm, std::size_t count, Value value) {
  std::vector<double> values;
  for (std::size_t i = arm.size() - std::min(count, arm.size()); i < arm.size(); ++i)
    values.push_back(value(arm[i]));
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double inkOf(const Run& run) {
  return run.ink;
}

double usualLength(const Arm& path) {
  return median(path, slopeColumns, [](const Run& run) { return double(run.length()); });
}

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
    const auto product = [](const std::vector<double>& a, const std::vector<double>& b) {
      double sum = 0;
      for (std::size_t i = 0; i < a.size(); ++i)
        sum += a[i] * b[i];
      return sum;
    };
    for (std::size_t lower = 0; lower < degree; ++lower) {
      const double square = product(shapes[lower], shapes[lower]);
      if (square < 1e-9)
        continue;
      const double part = product(shape, shapes[lower]) / square;
      for (std::size_t i = 0; i < shape.size(); ++i)
        shape[i] -= part * shapes[lower][i];
      for (std::size_t power = 0; power < 3; ++power)
        powers[degree][power] -= part * powers[lower][power];
    }
    const double square = product(shape, shape);
    if (square < 1e-9)
      continue;
    const double part = product(rest, shape) / square;
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

/// The columns of an arm that tell where it leads: next to a crossing both strokes have a part in
/// the edges.
Arm telling(const Arm& arm, std::size_t count) {
  const std::size_t skipped = arm.size() > leastArm ? 1 : 0;
  const std::size_t last = std::min(arm.size(), skipped + count);
  return Arm(arm.begin() + static_cast<std::ptrdiff_t>(skipped),
             arm.begin() + static_cast<std::ptrdiff_t>(last));
}

/// The last columns of the path, the last one first.
Arm lastOf(const std::vector<Run>& path, std::size_t count) {
  return telling(Arm(path.rbegin(),
                     path.rbegin() + static_cast<std::ptrdiff_t>(std::min(path.size(), count + 1))),
                 count);
}

/// Width across the stroke.
double widthOf(const Arm& arm) {
  const double rows = median(arm, arm.size(), inkOf);
  const double columns = std::max(1, std::abs(arm.back().x - arm.front().x));
  const double slope = (arm.back().middle - arm.front().middle) / columns;
  return rows / std::sqrt(1 + slope * slope);
}

/// Both arms begin at the crossing.
Way wayThrough(const Arm& in, const Arm& out) {
  Arm all = in;
  all.insert(all.end(), out.begin(), out.end());
  return Way(all, in.size() < leastArm + 1 || out.size() < leastArm + 1);
}

double misfit(const Arm& in, const Arm& out) {
  return wayThrough(in, out).misfit() + widthWeight * std::abs(widthOf(in) - widthOf(out));
}

/// Scraps beside the stroke are no branches of it, and what parts for a column only is no two.
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

} // namespace

/// The columns around one, without it and what is hidden.
static Arm around(const std::vector<Run>& path, std::size_t place, std::size_t reach) {
  Arm found;
  const std::size_t last = std::min(path.size(), place + reach + 1);
  for (std::size_t i = place - std::min(place, reach); i < last; ++i)
    if (i != place && !path[i].isCut)
      found.push_back(path[i]);
  return found;
}

void smooth(std::vector<Run>* path) {
  const std::vector<Run> found = *path;
  for (std::size_t i = 2; i + 2 < found.size(); ++i) {
    const Arm near = around(found, i, smoothReach);
    if (near.size() <= smoothReach)
      continue;
    const Way way(near, i < smoothReach || i + smoothReach >= found.size());
    const double off = std::abs(found[i].middle - way.at(found[i].x));
    const double slope = slopeOf(near);
    const bool isAlone = off > 4 * way.misfit() * std::hypot(1, slope) && way.misfit() <= endPlay;
    if (isAlone || off <= endPlay || (found[i].isCut && way.misfit() <= endPlay))
      (*path)[i].middle = way.at(found[i].x);
  }
}

double usualInk(const std::vector<Run>& path) {
  return median(path, path.size(), inkOf);
}

/// Strokes of one colour that run as one for some columns, or none.
struct CurveWalk::Crossing {
  std::vector<Run> merged;
  std::vector<Arm> others; ///< that lead in besides the path
  std::vector<Arm> exits;
  bool isEndless = false;
};

CurveWalk::CurveWalk(const Stroke& stroke, int direction, int gap)
    : m_stroke(stroke), m_direction(direction), m_gap(std::max(0, gap)) {}

/// A curve goes on up or down from where it is; what goes far both ways is another line.
bool CurveWalk::goesAcross(const Run& run, const Run& from) const {
  const double overshoot = leastOvershoot + from.length();
  return from.top - run.top > overshoot && run.bottom - from.bottom > overshoot;
}

std::vector<Run> CurveWalk::runsBehind(const Run& from, int direction) const {
  return m_stroke.runs(from.x + direction, from.top - 1, from.bottom + 1);
}

/// The runs beside `from` that lead into `run` as well.
std::vector<Run> CurveWalk::joining(const Run& run, const Run& from) const {
  std::vector<Run> found = runsBehind(run, -m_direction);
  const auto isFrom = [&](const Run& other) {
    return other.top <= from.bottom && from.top <= other.bottom;
  };
  found.erase(std::remove_if(found.begin(), found.end(), isFrom), found.end());
  return found;
}

/// A stroke's columns from `start` to where it ends or meets another.
std::vector<Run> CurveWalk::armFrom(const Run& start) const {
  Arm arm{start};
  while (arm.size() <= longestArms) {
    const Run& last = arm.back();
    std::vector<Run> runs = runsBehind(last, m_direction);
    runs.erase(std::remove_if(runs.begin(), runs.end(),
                              [&](const Run& run) { return goesAcross(run, last); }),
               runs.end());
    if (runs.size() == 1) {
      if (!joining(runs.front(), last).empty())
        break;
      arm.push_back(runs.front());
      continue;
    }
    const auto beyond =
        runs.empty() ? beyondGap(last, slopeOf(arm), std::min(m_gap, armGap)) : std::nullopt;
    if (!beyond || beyond->x == last.x)
      break;
    arm.push_back(*beyond);
  }
  return arm;
}

/// Whether a stroke goes on as one; where two cross, they lie upon each other for a few columns.
bool CurveWalk::isNarrow(const Run& run, double usual) const {
  if (run.ink > mostWidening * usual)
    return false;
  const Arm arm = armFrom(run);
  return runsBehind(arm.back(), m_direction).size() < 2 &&
         median(arm, arm.size(), inkOf) <= mostWidening * usual;
}

CurveWalk::Crossing CurveWalk::crossingBehind(const std::vector<Run>& path) const {
  const CurveWalk back(m_stroke, -m_direction, m_gap);
  Crossing crossing;
  const double usual = median(path, slopeColumns, inkOf);
  std::vector<Run> before{path.back()};
  for (;;) {
    std::vector<Run> front; // downwards
    for (const Run& from : before)
      for (const Run& run : runsBehind(from, m_direction))
        if (front.empty() || front.back().bottom < run.top)
          front.push_back(run);
    bool isJoined = false;
    for (const Run& run : front)
      for (const Run& other : runsBehind(run, -m_direction)) {
        const bool isKnown = std::any_of(before.begin(), before.end(), [&](const Run& known) {
          return known.top <= other.bottom && other.top <= known.bottom;
        });
        isJoined = isJoined || !isKnown;
        if (!isKnown)
          crossing.others.push_back(back.armFrom(other));
      }
    if (front.empty())
      break;
    const bool isAcross = std::any_of(front.begin(), front.end(),
                                      [&](const Run& run) { return goesAcross(run, path.back()); });
    if (!isAcross && !isJoined && (front.size() > 1 || isNarrow(front.front(), usual))) {
      for (const Run& run : front)
        crossing.exits.push_back(armFrom(run));
      dropScraps(&crossing.exits);
      if (!crossing.exits.empty())
        break;
    }
    if (static_cast<int>(crossing.merged.size()) == mostMerged) {
      crossing.isEndless = true;
      break;
    }
    Run merged = front.front();
    merged.bottom = front.back().bottom;
    crossing.merged.push_back(merged);
    before = front;
  }
  dropScraps(&crossing.others);
  return crossing;
}

bool CurveWalk::leadsTo(const Crossing& crossing, const std::vector<Run>& path) const {
  const Arm in = lastOf(path, shortestArms);
  return in.size() >= leastColumns &&
         misfit(in, telling(crossing.exits.front(), shortestArms)) <= mostMisfit;
}

CurveWalk::Step CurveWalk::cross(const Crossing& crossing, std::vector<Run>* path) const {
  if (crossing.isEndless)
    return Step::Unclear;
  if (crossing.exits.empty()) {
    // A line across, as of a frame, ends it.
    const double most = 2 * usualLength(*path) + longRows;
    const bool isEnd = std::any_of(crossing.merged.begin(), crossing.merged.end(),
                                   [&](const Run& run) { return run.length() > most; });
    return isEnd && crossing.merged.size() <= mostHidden ? Step::End : Step::Unclear;
  }
  const std::size_t count = qBound(shortestArms, 2 * crossing.merged.size(), longestArms);
  const Arm in = lastOf(*path, count);
  if (in.size() < leastColumns)
    return Step::Unclear;
  std::vector<Arm> others, exits;
  for (const Arm& arm : crossing.others)
    others.push_back(telling(arm, count));
  for (const Arm& arm : crossing.exits)
    exits.push_back(telling(arm, count));

  constexpr double unexplained = 3;
  std::vector<double> own, foreign; // misfits of each exit with the path, and with the best other
  for (const Arm& exit : exits) {
    own.push_back(misfit(in, exit));
    double least = unexplained;
    for (const Arm& other : others)
      least = std::min(least, misfit(other, exit));
    foreign.push_back(least);
  }
  std::size_t best = 0;
  // An exit is the likelier, the better the others explain the rest.
  const auto score = [&](std::size_t i) { return own[i] - (others.empty() ? 0 : foreign[i] / 2); };
  for (std::size_t i = 1; i < exits.size(); ++i)
    if (score(i) < score(best))
      best = i;
  if (own[best] > mostMisfit) {
    const bool areForeign =
        std::all_of(foreign.begin(), foreign.end(), [](double off) { return off <= mostMisfit; });
    return areForeign ? Step::End : Step::Unclear;
  }
  const double margin = std::max(leastMargin, 0.5 * own[best]);
  for (std::size_t i = 0; i < exits.size(); ++i)
    if (i != best && own[i] <= mostMisfit && score(i) - score(best) < margin)
      return Step::Unclear;

  const Way way = wayThrough(in, exits[best]);
  const int half = static_cast<int>(usualLength(*path) / 2);
  for (const Run& merged : crossing.merged) {
    Run run = merged;
    run.middle = qBound(double(merged.top), way.at(merged.x), double(merged.bottom + 1));
    run.top = std::max(merged.top, qFloor(run.middle) - half);
    run.bottom = std::max(run.top, std::min(merged.bottom, qFloor(run.middle) + half));
    path->push_back(run);
  }
  path->push_back(crossing.exits[best].front());
  return Step::On;
}

/// Else what seemed to be one was noise, or the stroke itself.
bool CurveWalk::isCrossing(const Crossing& crossing, bool isLong,
                           const std::vector<Run>& path) const {
  if (crossing.exits.size() > 1 || crossing.isEndless)
    return true;
  if (crossing.exits.empty())
    return !crossing.others.empty() && (isLong || crossing.merged.size() > leastArm);
  // A piece of a line across lies upon the stroke, which goes on behind it.
  return !crossing.others.empty() || (isLong && leadsTo(crossing, path));
}

CurveWalk::Step CurveWalk::next(std::vector<Run>* path) const {
  const Run from = path->back();
  std::vector<Run> runs = runsBehind(from, m_direction);
  runs.erase(std::remove_if(runs.begin(), runs.end(),
                            [&](const Run& run) { return goesAcross(run, from); }),
             runs.end());
  if (runs.empty())
    return Step::Gap;
  const bool isLong = runs.front().length() > 2 * usualLength(*path) + longRows;
  if (runs.size() > 1 || isLong || !joining(runs.front(), from).empty()) {
    const Crossing crossing = crossingBehind(*path);
    if (isCrossing(crossing, isLong, *path))
      return cross(crossing, path);
  }
  const double expected = from.middle + slopeOf(*path);
  path->push_back(*std::min_element(runs.begin(), runs.end(), [&](const Run& a, const Run& b) {
    return std::abs(a.middle - expected) < std::abs(b.middle - expected);
  }));
  return Step::On;
}

std::optional<Run> CurveWalk::beyondGap(const Run& from, double slope, int gap) const {
  const bool steep = std::abs(slope) > steepSlope;
  const double anchor = !steep ? from.middle : slope > 0 ? from.bottom + 1 : from.top;
  std::optional<Run> best;
  double least = 0;
  for (int distance = steep ? 0 : 1; distance <= gap + 1; ++distance) {
    if (best && distance >= least)
      break;
    const double expected = anchor + slope * distance;
    const double reach = 2 + distance * (0.5 + 0.5 * std::abs(slope)) + (steep ? gap : 0);
    const int x = from.x + m_direction * distance;
    for (const Run& run : m_stroke.runs(x, qFloor(expected - reach), qCeil(expected + reach))) {
      if (distance == 0 && (slope > 0 ? run.top <= from.bottom : run.bottom >= from.top))
        continue; // where it came from
      if (goesAcross(run, from) || !m_stroke.isSolid(run))
        continue;
      const double entry = qBound(double(run.top), anchor, double(run.bottom + 1));
      const double way = std::hypot(distance, entry - anchor);
      if (way > gap + 1.5)
        continue;
      const double ahead = qBound(double(run.top), expected, double(run.bottom + 1));
      const double cost = way + 2 * std::abs(ahead - expected) / (1 + std::abs(slope));
      if (!best || cost < least) {
        best = run;
        least = cost;
      }
    }
  }
  return best;
}

/// False where nothing is beyond. `stretch` is where the last unbroken one starts, `jumped` the
/// columns before it.
bool CurveWalk::jumpGap(std::vector<Run>* path, std::size_t* stretch, int* jumped) const {
  const Run from = path->back();
  const auto run = beyondGap(from, slopeOf(*path), m_gap);
  if (!run)
    return false;
  if (run->x == from.x) { // the rest of a steep stretch that something lies across
    Run& last = path->back();
    last.middle = (last.middle * last.length() + run->middle * run->length()) /
                  (last.length() + run->length());
    last.top = std::min(last.top, run->top);
    last.bottom = std::max(last.bottom, run->bottom);
    return true;
  }
  *stretch = path->size();
  *jumped = std::abs(run->x - from.x) - 1;
  path->push_back(*run);
  return true;
}

bool CurveWalk::go(std::vector<Run>* path) const {
  const std::size_t begin = path->size();
  std::size_t stretch = begin;
  int jumped = 0;
  Step step = Step::On;
  while (step == Step::On) {
    step = next(path);
    if (step == Step::Gap)
      step = jumpGap(path, &stretch, &jumped) ? Step::On : Step::End;
  }
  // A scrap beyond a gap is a letter or a tick rather than the curve.
  if (jumped > 0 && static_cast<int>(path->size() - stretch) <= jumped + 2)
    path->resize(std::max(begin, stretch));
  trimEnd(path);
  return step != Step::Unclear;
}

/// Where the stroke ends upon a line across, its last columns may have a part of that.
void CurveWalk::trimEnd(std::vector<Run>* path) {
  constexpr std::size_t most = 6, last = 3;
  if (path->size() < shortestArms + most)
    return;
  const Arm before(path->begin(), path->end() - most);
  if (std::abs(slopeOf(before)) > 1)
    return;
  const double usual = usualLength(before);
  const auto isLong = [&](const Run& run) { return run.length() > 2 * usual + longRows; };
  path->erase(std::find_if(path->end() - most, path->end(), isLong), path->end());
  const std::size_t count = path->size() - last;
  const Way way(Arm(path->begin() + static_cast<std::ptrdiff_t>(count + last - shortestArms),
                    path->begin() + static_cast<std::ptrdiff_t>(count)),
                true);
  while (path->size() > count && std::abs(path->back().middle - way.at(path->back().x)) > endPlay)
    path->pop_back();
}

std::optional<QPointF> CurveWalk::tip(std::vector<Run>* path, std::size_t keep) const {
  const double steepness = slopeOf(*path);
  if (std::abs(steepness) <= 1)
    return std::nullopt;
  const auto reaches = [&](const Run& run) { return steepness > 0 ? run.bottom : -run.top; };
  const Run end = path->back();
  std::size_t count = path->size();
  while (count > keep && reaches((*path)[count - 1]) + 0.5 * std::abs(steepness) > reaches(end))
    --count;
  if (count < 2 || count == path->size())
    return std::nullopt;
  path->resize(count);
  // The middle of its last row but one: the last may be the shadow of an edge.
  const int row =
      steepness > 0 ? std::max(end.top, end.bottom - 1) : std::min(end.bottom, end.top + 1);
  const QPointF place(m_stroke.middleOfRow(end.x, row), row + 0.5);
  if ((place.x() - path->back().at()) * m_direction <= 0)
    return std::nullopt;
  // A line that the stroke ends upon may have drawn it aside, unless that is as steep.
  const auto offFrom = [&](std::size_t columns) {
    const Way way(lastOf(*path, columns), true);
    return std::abs(place.y() - way.at(place.x() - 0.5)) / std::hypot(1, steepness);
  };
  if (std::abs(steepness) < steepTip &&
      std::min(offFrom(shortestArms), offFrom(leastColumns)) > 2 * endPlay)
    return std::nullopt;
  return place;
}
