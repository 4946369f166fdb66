#include "Core/Analog/FrequencyResponse.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;

double decibelsOf(const std::complex<double>& value) {
  return 20 * std::log10(std::abs(value));
}

/// Above -180, to 180.
double degreesOf(const std::complex<double>& value) {
  const double degrees = std::arg(value) * 180 / pi;
  return degrees > -180 ? degrees : 180;
}

/// The turn from one angle to another, the short way round.
double turn(double from, double to) {
  return std::remainder(to - from, 360.0);
}

struct Point {
  double decade = 0;
  double decibels = 0;
  double degrees = 0; ///< of one turn
  bool isFinite = false;
};

Point pointAt(const TransferFunction& function, double decade) {
  const std::complex<double> value = function.undelayed(std::pow(10, decade));
  const Point point{decade, decibelsOf(value), degreesOf(value), true};
  return std::isfinite(point.decibels) && std::isfinite(point.degrees) ? point : Point{decade};
}

/// A look at all frequencies that anybody builds circuits for, to see where something happens.
class Survey {
public:
  explicit Survey(const TransferFunction& function);

  bool hasCorners() const { return m_first <= m_last; }
  double first() const { return m_first; }
  double last() const { return m_last; }
  void note(double decade);
  double unityGain() const; ///< the decade at which it is 1; NaN for none

private:
  bool bends(std::size_t index) const;

  std::vector<Point> m_points;
  double m_first = HUGE_VAL;
  double m_last = -HUGE_VAL;
};

Survey::Survey(const TransferFunction& function) {
  constexpr double lowest = -9;
  constexpr double highest = 15;
  constexpr double perDecade = 8;
  constexpr double wild = 60; // degrees from one look to the next: a delay has taken over
  constexpr int wildAtOnce = 3;
  const double shift = std::log10(function.frequencyScale);
  for (double each = 0; each <= (highest - lowest) * perDecade; ++each)
    m_points.push_back(pointAt(function, lowest + each / perDecade + shift));
  int wildTurns = 0;
  for (std::size_t i = 1; i + 1 < m_points.size() && wildTurns < wildAtOnce; ++i) {
    if (!m_points[i - 1].isFinite || !m_points[i].isFinite || !m_points[i + 1].isFinite)
      continue;
    const bool isWild = std::abs(turn(m_points[i - 1].degrees, m_points[i].degrees)) > wild;
    wildTurns = isWild ? wildTurns + 1 : 0;
    if (bends(i) && !isWild)
      note(m_points[i].decade);
  }
}

void Survey::note(double decade) {
  constexpr double farthest = 150; // what an axis can show
  decade = std::clamp(decade, -farthest, farthest);
  m_first = std::min(m_first, decade);
  m_last = std::max(m_last, decade);
}

bool Survey::bends(std::size_t index) const {
  constexpr double leastBend = 0.1; // decibels
  constexpr double leastTurn = 2;   // degrees
  const Point& before = m_points[index - 1];
  const Point& here = m_points[index];
  const Point& behind = m_points[index + 1];
  return std::abs(before.decibels - 2 * here.decibels + behind.decibels) > leastBend ||
         std::abs(turn(before.degrees, here.degrees)) > leastTurn;
}

double Survey::unityGain() const {
  for (std::size_t i = 1; i < m_points.size(); ++i)
    if (m_points[i - 1].isFinite && m_points[i].isFinite &&
        (m_points[i - 1].decibels < 0) != (m_points[i].decibels < 0))
      return m_points[i].decade;
  return std::nan("");
}

/// Samples a stretch of the curve, finer where it bends.
class Sampler {
public:
  explicit Sampler(const TransferFunction& function)
      : m_function(function),
        m_left(std::clamp(mostSteps / std::max<int>(1, int(function.expression.length())),
                          fewestExtra, mostExtra)) {}

  void sample(const Decades& decades) {
    constexpr int perDecade = 20;
    Point last = pointAt(m_function, decades.first);
    m_points.push_back(last);
    for (int each = decades.first * perDecade + 1; each <= decades.last * perDecade; ++each) {
      const Point next = pointAt(m_function, double(each) / perDecade);
      refine(last, next, deepest);
      m_points.push_back(next);
      last = next;
    }
  }

  FrequencyResponse response() const;

private:
  // So that a picture is there within a frame, also of a long expression.
  static constexpr int mostSteps = 500000;
  static constexpr int mostExtra = 3000;
  static constexpr int fewestExtra = 100;
  static constexpr int deepest = 16; ///< halvings of the first distance

  void refine(const Point& from, const Point& to, int depth);
  double startingTurns(const Point& first, const Point& second) const;
  double turnBetween(const Point& from, const Point& to) const;

  const TransferFunction& m_function;
  int m_left; ///< points that may still be added
  std::vector<Point> m_points;
};

void Sampler::refine(const Point& from, const Point& to, int depth) {
  constexpr double flat = 0.1;     // decibels beside the straight line
  constexpr double steady = 1;     // degrees beside it
  constexpr double largeTurn = 30; // degrees
  if (depth == 0 || m_left == 0 || !from.isFinite || !to.isFinite)
    return;
  --m_left;
  const Point middle = pointAt(m_function, (from.decade + to.decade) / 2);
  const double whole = turn(from.degrees, to.degrees);
  const bool isStraight = middle.isFinite && std::abs(whole) < largeTurn &&
                          std::abs(middle.decibels - (from.decibels + to.decibels) / 2) < flat &&
                          std::abs(turn(from.degrees + whole / 2, middle.degrees)) < steady;
  if (isStraight)
    return;
  refine(from, middle, depth - 1);
  m_points.push_back(middle);
  refine(middle, to, depth - 1);
}

/// Whole turns to add to the first phase, so that it is as near as may be to what the slope says.
double Sampler::startingTurns(const Point& first, const Point& second) const {
  constexpr double decibelsOfOrder = 20; // and a quarter of a turn
  constexpr double untilNearer = 1 - 1e-6;
  const double order =
      (second.decibels - first.decibels) / (second.decade - first.decade) / decibelsOfOrder;
  return 360 * std::round((90 * order - first.degrees) / 360 * untilNearer);
}

/// Of half a turn, as by a resonance without losses, the direction is that of the way round it on
/// the right.
double Sampler::turnBetween(const Point& from, const Point& to) const {
  constexpr double half = 180 - 1e-3;
  const double straight = turn(from.degrees, to.degrees);
  if (std::abs(straight) < half)
    return straight;
  const double first = std::pow(10, from.decade);
  const double last = std::pow(10, to.decade);
  const double beside = degreesOf(m_function.undelayed((first + last) / 2, last - first));
  return turn(from.degrees, beside) + turn(beside, to.degrees);
}

FrequencyResponse Sampler::response() const {
  FrequencyResponse result;
  const Point* last = nullptr;
  double degrees = 0;
  for (const Point& point : m_points) {
    if (!point.isFinite)
      continue;
    if (last)
      degrees += turnBetween(*last, point);
    else
      degrees = point.degrees + startingTurns(point, pointAt(m_function, point.decade + 0.01));
    const double frequency = std::pow(10, point.decade);
    result.frequency.push_back(frequency);
    result.decibels.push_back(point.decibels);
    result.degrees.push_back(degrees - 360 * frequency * m_function.delay);
    last = &point;
  }
  return result;
}

} // namespace

std::complex<double> TransferFunction::undelayed(double frequency, double growth) const {
  const double perHertz = 2 * pi / frequencyScale;
  return expression.at({growth * perHertz, frequency * perHertz});
}

Decades decadesOfInterest(const TransferFunction& function) {
  Survey survey(function);
  if (function.delay > 0)
    survey.note(-std::log10(2 * pi * function.delay));
  if (survey.hasCorners())
    return {int(std::floor(survey.first() - 1)), int(std::ceil(survey.last() + 1))};
  if (const double unity = survey.unityGain(); !std::isnan(unity))
    return {int(std::floor(unity)) - 2, int(std::floor(unity)) + 3};
  const int scale = int(std::floor(std::log10(function.frequencyScale)));
  return {scale, scale + Decades().last};
}

FrequencyResponse frequencyResponse(const TransferFunction& function, const Decades& decades) {
  Sampler sampler(function);
  sampler.sample(decades);
  return sampler.response();
}
