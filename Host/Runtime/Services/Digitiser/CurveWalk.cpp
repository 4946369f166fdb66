#include "Services/Digitiser/CurveWalk.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr double leastOvershoot = 6;    // pixels by which a line across exceeds the stroke
constexpr double steepSlope = 1.5;      // from here on a gap may lie within a column
constexpr std::size_t mostMerged = 150; // columns that strokes may run as one
constexpr std::size_t leastColumns = 3; // that tell a direction
constexpr std::size_t shortestArms = 14, longestArms = 48; // columns that a branch is judged by
constexpr double mostWidening = 1.3;   // of a stroke that another joined for good
constexpr double longRows = 4;         // by which a line across lengthens a column
constexpr std::size_t mostTrimmed = 6; // columns at its end that something may have a part in
constexpr std::size_t mostHidden = 16; // columns at its end that a curve may lie upon a line
constexpr int armGap = 12;             // pixels that an arm may be hidden or broken
constexpr double mostMisfit = 1.2;     // pixels off the way, on an average, of a likely branch
constexpr double leastMargin = 0.12;   // by which a branch has to be likelier than the next

/// Whether a stroke's own end cuts its last columns short.
bool isSteep(double slope) {
  return std::abs(slope) > 1;
}

} // namespace

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

/// Far longer than the stroke's columns: a line across has a part in it.
static bool isLonger(const Run& run, double usual) {
  return run.length() > 2 * usual + longRows;
}

/// A stroke's columns from `start` to where it ends or meets another.
Arm CurveWalk::armFrom(const Run& start) const {
  Arm arm{start};
  while (arm.size() <= longestArms) {
    const Run& last = arm.back();
    std::vector<Run> runs = runsBehind(last, m_direction);
    runs.erase(std::remove_if(runs.begin(), runs.end(),
                              [&](const Run& run) { return goesAcross(run, last); }),
               runs.end());
    if (runs.size() > 1 || (!runs.empty() && !joining(runs, {last}).empty()))
      break;
    const auto next = runs.empty() ? beyondGap(last, slopeOf(arm), std::min(m_gap, armGap))
                                   : std::make_optional(runs.front());
    if (!next || next->x == last.x || isLonger(*next, usualLength(arm)))
      break;
    arm.push_back(*next);
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

/// The runs of the next column that runs of one lead to, downwards.
std::vector<Run> CurveWalk::frontBehind(const std::vector<Run>& before) const {
  std::vector<Run> front;
  for (const Run& from : before)
    for (const Run& run : runsBehind(from, m_direction))
      if (front.empty() || front.back().bottom < run.top)
        front.push_back(run);
  return front;
}

/// The runs that lead to `front` besides `before`.
std::vector<Run> CurveWalk::joining(const std::vector<Run>& front,
                                    const std::vector<Run>& before) const {
  std::vector<Run> found;
  for (const Run& run : front)
    for (const Run& other : runsBehind(run, -m_direction))
      if (std::none_of(before.begin(), before.end(), [&](const Run& known) {
            return known.top <= other.bottom && other.top <= known.bottom;
          }))
        found.push_back(other);
  return found;
}

/// The strokes that go on from `front`; none where they are not apart yet.
std::vector<Arm> CurveWalk::exitsFrom(const std::vector<Run>& front, const Arm& path) const {
  const double usual = median(path, slopeColumns, inkOf);
  const bool isAcross = std::any_of(front.begin(), front.end(),
                                    [&](const Run& run) { return goesAcross(run, path.back()); });
  std::vector<Arm> exits;
  if (isAcross || (front.size() == 1 && !isNarrow(front.front(), usual)))
    return exits;
  for (const Run& run : front)
    exits.push_back(armFrom(run));
  dropScraps(&exits);
  return exits;
}

CurveWalk::Crossing CurveWalk::crossingBehind(const Arm& path) const {
  const CurveWalk back(m_stroke, -m_direction, m_gap);
  Crossing crossing;
  std::vector<Run> before{path.back()};
  for (std::vector<Run> front = frontBehind(before); !front.empty(); front = frontBehind(before)) {
    const std::vector<Run> joined = joining(front, before);
    for (const Run& other : joined)
      crossing.others.push_back(back.armFrom(other));
    if (joined.empty())
      crossing.exits = exitsFrom(front, path);
    crossing.isEndless = crossing.merged.size() == mostMerged;
    if (!crossing.exits.empty() || crossing.isEndless)
      break;
    crossing.merged.push_back(front.front());
    crossing.merged.back().bottom = front.back().bottom;
    before = std::move(front);
  }
  dropScraps(&crossing.others);
  return crossing;
}

bool CurveWalk::leadsTo(const Crossing& crossing, const Arm& path) const {
  const Arm in = lastOf(path, shortestArms);
  return in.size() >= leastColumns &&
         misfit(in, telling(crossing.exits.front(), shortestArms)) <= mostMisfit;
}

/// A line across, as of a frame, ends a curve, unless the curve meets another before.
bool CurveWalk::endsAcross(const Crossing& crossing, const Arm& path) {
  const std::vector<Run>& merged = crossing.merged;
  const double usual = usualLength(path);
  const auto across = std::find_if(merged.begin(), merged.end(),
                                   [&](const Run& run) { return isLonger(run, usual); });
  const auto before = static_cast<std::size_t>(across - merged.begin());
  return across != merged.end() && merged.size() <= mostHidden &&
         (crossing.others.empty() || before <= mostTrimmed);
}

/// The exit that the path goes on by, or why there is none.
CurveWalk::Choice CurveWalk::choose(const Crossing& crossing, const Arm& in,
                                    std::size_t count) const {
  constexpr double unexplained = 3;
  std::vector<double> own, foreign; // misfits of each exit with the path, and with the best other
  for (const Arm& arm : crossing.exits) {
    const Arm exit = telling(arm, count);
    own.push_back(misfit(in, exit));
    foreign.push_back(unexplained);
    for (const Arm& other : crossing.others)
      foreign.back() = std::min(foreign.back(), misfit(telling(other, count), exit));
  }
  // An exit is the likelier, the worse it suits the others.
  const auto score = [&](std::size_t i) {
    return own[i] - (crossing.others.empty() ? 0 : foreign[i] / 2);
  };
  std::size_t best = 0;
  for (std::size_t i = 1; i < own.size(); ++i)
    if (score(i) < score(best))
      best = i;
  if (own[best] > mostMisfit) {
    const bool areForeign =
        std::all_of(foreign.begin(), foreign.end(), [](double off) { return off <= mostMisfit; });
    return {areForeign ? Step::End : Step::Unclear};
  }
  if (own.size() == 1 && own[best] > foreign[best] + leastMargin)
    return {Step::Unclear}; // it is another's, and the own one is hidden
  // Far shorter than the crossing, it tells less.
  const double doubt =
      std::max(1.0, crossing.merged.size() / (2.0 * double(crossing.exits[best].size())));
  const double margin = doubt * std::max(leastMargin, 0.5 * own[best]);
  for (std::size_t i = 0; i < own.size(); ++i)
    if (i != best && own[i] <= mostMisfit && score(i) - score(best) < margin)
      return {Step::Unclear};
  return {Step::On, best};
}

CurveWalk::Step CurveWalk::cross(const Crossing& crossing, Arm* path) const {
  if (crossing.isEndless)
    return Step::Unclear;
  if (crossing.exits.empty())
    return endsAcross(crossing, *path) ? Step::End : Step::Unclear;
  const std::size_t count = qBound(shortestArms, 2 * crossing.merged.size(), longestArms);
  const Arm in = lastOf(*path, count);
  if (in.size() < leastColumns)
    return Step::Unclear;
  const Choice choice = choose(crossing, in, count);
  if (choice.step != Step::On)
    return choice.step;

  const Arm& exit = crossing.exits[choice.exit];
  const Way way = wayThrough(in, telling(exit, count));
  const int half = static_cast<int>(usualLength(*path) / 2);
  for (Run run : crossing.merged) {
    run.middle = qBound(double(run.top), way.at(run.x), double(run.bottom + 1));
    run.top = std::max(run.top, qFloor(run.middle) - half);
    run.bottom = std::max(run.top, std::min(run.bottom, qFloor(run.middle) + half));
    path->push_back(run);
  }
  path->push_back(exit.front());
  return Step::On;
}

/// Else what seemed to be one was noise, or the stroke itself.
bool CurveWalk::isCrossing(const Crossing& crossing, bool isLong, const Arm& path) const {
  if (crossing.exits.size() > 1 || crossing.isEndless)
    return true;
  if (crossing.exits.empty())
    return !crossing.others.empty() && (isLong || crossing.merged.size() > leastArm);
  // A piece of a line across lies upon the stroke, which goes on behind it.
  return !crossing.others.empty() || (isLong && leadsTo(crossing, path));
}

CurveWalk::Step CurveWalk::next(Arm* path) const {
  const Run from = path->back();
  std::vector<Run> runs = runsBehind(from, m_direction);
  runs.erase(std::remove_if(runs.begin(), runs.end(),
                            [&](const Run& run) { return goesAcross(run, from); }),
             runs.end());
  if (runs.empty())
    return Step::Gap;
  const bool isLong = isLonger(runs.front(), usualLength(*path));
  if (runs.size() > 1 || isLong || !joining({runs.front()}, {from}).empty()) {
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
bool CurveWalk::jumpGap(Arm* path, std::size_t* stretch, int* jumped) const {
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

bool CurveWalk::go(Arm* path) const {
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
  return step != Step::Unclear;
}

/// Where the stroke ends upon a line across, its last columns may have a part of that; those of a
/// steep one are cut short by its end. Returns the column that it led to.
int CurveWalk::trimEnd(Arm* path) {
  if (path->size() < shortestArms + 2 * mostTrimmed)
    return path->back().x;
  const Arm before(path->begin(), path->end() - mostTrimmed);
  const double usual = usualLength(before), steepness = std::hypot(1, slopeOf(before));
  path->erase(std::find_if(path->end() - mostTrimmed, path->end(),
                           [&](const Run& run) { return isLonger(run, usual); }),
              path->end());
  const int led = path->back().x;
  const auto cut = static_cast<std::size_t>(usual / steepness) + 2;
  const std::size_t last =
      isSteep(slopeOf(before)) ? qBound(leastColumns, cut, mostTrimmed) : leastColumns;
  const auto end = path->end() - static_cast<std::ptrdiff_t>(last);
  const Way way(Arm(end - shortestArms, end), !isSteep(slopeOf(before)));
  const std::size_t count = path->size() - last;
  while (path->size() > count &&
         std::abs(path->back().middle - way.at(path->back().x)) > endPlay * steepness)
    path->pop_back();
  return led;
}

/// Where a steep stroke that leads from `last` by `slope` ends, row by row; at column `x` at last.
QPointF CurveWalk::endBehind(const Run& last, double slope, int farthest, int x) const {
  const int down = slope > 0 ? 1 : -1;
  QPointF at(last.at(), qFloor(last.middle) + 0.5), end = at;
  const auto isOn = [&] { return m_stroke.has(qFloor(at.x()), qFloor(at.y())); };
  while (isOn() || at.y() * down <= farthest * down) {
    at += QPointF(m_direction / std::abs(slope), down);
    if ((at.x() - x - 0.5) * m_direction > 0.5)
      break;
    if (!isOn())
      continue;
    if (isLonger(m_stroke.runAt(qFloor(at.x()), qFloor(at.y())), last.length()))
      break;
    const double off = m_stroke.middleOfRow(qFloor(at.x()), qFloor(at.y())) - at.x();
    if (std::abs(off) < endPlay) // else a line across has a part in the row
      at.rx() += off / 2;
    end = at;
  }
  return end;
}

/// Columns that reach as far as the last one are cut short as it is. The rows there tell the end.
std::optional<QPointF> CurveWalk::tip(Arm* path, std::size_t keep) const {
  const int x = trimEnd(path);
  const double slope = slopeOf(*path);
  if (!isSteep(slope))
    return std::nullopt;
  const auto reaches = [&](const Run& run) { return slope > 0 ? run.bottom : -run.top; };
  const int farthest = reaches(path->back());
  while (path->size() > keep && reaches(path->back()) + 0.5 * std::abs(slope) > farthest)
    path->pop_back();
  if (path->size() < 2)
    return std::nullopt;
  const QPointF end = endBehind(path->back(), slope, std::abs(farthest), x);
  return (end.x() - path->back().at()) * m_direction > 0 ? std::make_optional(end) : std::nullopt;
}
