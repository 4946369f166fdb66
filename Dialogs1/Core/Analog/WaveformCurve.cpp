#include "Core/Analog/WaveformCurve.h"

#include <algorithm>
#include <cmath>

namespace {

using Field = WaveField;

constexpr double turn = 6.283185307179586; // radians
constexpr double degreesOfTurn = 360;
constexpr int shownPeriods = 2;
constexpr int stepsOfPeriod = 128; // of what is no straight line
constexpr double before = 0.25;    // of a period, or of a single shape, is shown of what is around
constexpr double settled = 6;      // time constants until nothing is seen to move
constexpr double shortest = 1e-99; // seconds that are told apart from none
constexpr double longest = 1e99;

/// The parts of a shape in seconds, from its start.
struct Parts {
  double rise = 0, width = 0, fall = 0, period = 0;
};

bool isSine(WaveShape shape) {
  return shape == WaveShape::Sine || shape == WaveShape::Cosine;
}

std::vector<std::optional<double>> neededBy(const WaveSettings& settings) {
  std::vector<std::optional<double>> needed = {settings.delay, settings.initial, settings.pulse};
  if (isPeriodic(settings.shape))
    needed.push_back(settings[Field::Frequency]);
  switch (settings.shape) {
  case WaveShape::Square:
    break;
  case WaveShape::Triangle:
  case WaveShape::Sawtooth:
    needed.push_back(settings[Field::Duty]);
    break;
  case WaveShape::Sine:
  case WaveShape::Cosine:
    needed.push_back(settings.damping);
    break;
  case WaveShape::Pulse:
    needed.push_back(settings[Field::Duty]);
    [[fallthrough]];
  case WaveShape::OnePulse:
  case WaveShape::ExponentialPulse:
    needed.insert(needed.end(), {settings[Field::Width], settings[Field::Fall]});
    [[fallthrough]];
  case WaveShape::Step:
    needed.push_back(settings[Field::Rise]);
    break;
  }
  return needed;
}

WaveCurve::Lack lackOf(const WaveSettings& settings) {
  const auto needed = neededBy(settings);
  if (!std::all_of(needed.begin(), needed.end(), [](const auto& value) { return bool(value); }))
    return WaveCurve::Lack::Hidden;
  const double period = isPeriodic(settings.shape) ? 1 / *settings[Field::Frequency] : 1;
  return period > shortest && period < longest ? WaveCurve::Lack::None
                                               : WaveCurve::Lack::NoFrequency;
}

Parts partsOf(const WaveSettings& settings) {
  const auto at = [&settings](Field field) {
    return std::clamp(settings[field].value_or(0), 0.0, longest);
  };
  Parts parts{at(Field::Rise), at(Field::Width), at(Field::Fall), 0};
  if (isPeriodic(settings.shape))
    parts.period = 1 / *settings[Field::Frequency];
  if (settings.shape == WaveShape::Square) {
    parts = {0, parts.period / 2, 0, parts.period};
  } else if (settings.shape == WaveShape::Triangle || settings.shape == WaveShape::Sawtooth) {
    const double rise = at(Field::Duty) / 100 * parts.period;
    parts = {rise, 0, parts.period - rise, parts.period};
  }
  return parts;
}

/// Puts the points of a curve together.
class CurveMaker {
public:
  explicit CurveMaker(const WaveSettings& settings)
      : m_settings(settings), m_parts(partsOf(settings)), m_low(*settings.initial),
        m_high(*settings.pulse) {}

  WaveCurve make() {
    if (isPeriodic(m_settings.shape))
      makePeriods();
    else if (m_settings.shape == WaveShape::ExponentialPulse)
      makeExponential();
    else
      makeSingle();
    return std::move(m_curve);
  }

private:
  void add(double x, double share) {
    m_curve.x.push_back(x);
    // Not by the difference, which may be more than a number holds.
    m_curve.y.push_back(m_low * (1 - share) + m_high * share);
  }

  void makePeriods() {
    const double period = m_parts.period;
    const bool isOff = m_settings.isOffUntilDelay && !m_settings.isPhase;
    const double delay =
        m_settings.isPhase ? -*m_settings.delay / degreesOfTurn * period : *m_settings.delay;
    if (isOff) {
      m_from = delay;
      add(delay - before * period, valueAt(0));
      add(delay, valueAt(0));
    }
    m_to = m_from + shownPeriods * period;
    if (isSine(m_settings.shape)) {
      makeSine(delay);
      return;
    }
    // The last start at or before the left edge.
    double start = isOff ? delay : std::fmod(delay, period);
    if (start > m_from)
      start -= period;
    for (int i = 0; i <= shownPeriods; ++i)
      makePeriod(start + i * period, start + (i + 1) * period);
  }

  /// How far the curve is from its initial level to the other one.
  double valueAt(double time) const {
    if (!isSine(m_settings.shape))
      return 0;
    const double angle = std::fmod(time / m_parts.period, 1.0) * turn;
    const double damped = std::exp(-*m_settings.damping * std::max(time, 0.0));
    const double wave = m_settings.shape == WaveShape::Sine ? std::sin(angle) : std::cos(angle);
    return 0.5 + 0.5 * wave * damped;
  }

  void makeSine(double delay) {
    for (int i = 0; i <= shownPeriods * stepsOfPeriod; ++i) {
      const double time = m_from + i * m_parts.period / stepsOfPeriod;
      add(time, valueAt(time - delay));
    }
  }

  void makePeriod(double start, double next) {
    const double ends[] = {0, m_parts.rise, m_parts.rise + m_parts.width,
                           m_parts.rise + m_parts.width + m_parts.fall};
    constexpr double shares[] = {0, 1, 1, 0};
    // What is longer than the period is cut by the next one.
    for (std::size_t i = 0; i < std::size(ends); ++i)
      addWithin(std::min(start + ends[i], next),
                ends[i] <= m_parts.period ? shares[i] : shareAt(m_parts.period));
    if (ends[3] < m_parts.period)
      addWithin(next, 0);
  }

  double shareAt(double time) const {
    if (time < m_parts.rise)
      return time / m_parts.rise;
    time -= m_parts.rise + m_parts.width;
    return time <= 0 ? 1 : std::max(1 - time / m_parts.fall, 0.0);
  }

  /// Adds a point, or where the line to it crosses an edge of the picture.
  void addWithin(double x, double share) {
    if (m_last && m_last->first < m_from && x > m_from)
      add(m_from, between(m_from, x, share));
    if (x >= m_from && x <= m_to)
      add(x, share);
    else if (m_last && x > m_to && m_last->first < m_to)
      add(m_to, between(m_to, x, share));
    m_last = {x, share};
  }

  double between(double at, double x, double share) const {
    return m_last->second + (share - m_last->second) * (at - m_last->first) / (x - m_last->first);
  }

  void makeSingle() {
    const bool isStep = m_settings.shape == WaveShape::Step;
    const double delay = *m_settings.delay;
    const double rise = m_parts.rise;
    const double length = isStep ? rise : rise + m_parts.width + m_parts.fall;
    const double around = margin(length);
    add(delay - around, 0);
    add(delay, 0);
    add(delay + rise, 1);
    if (!isStep) {
      add(delay + (rise + m_parts.width), 1);
      add(delay + length, 0);
    }
    add(delay + length + around, isStep ? 1 : 0);
  }

  void makeExponential() {
    const double delay = *m_settings.delay;
    const double tail = settled * m_parts.fall;
    add(delay - margin(m_parts.width + tail), 0);
    add(delay, 0);
    double reached = 1;
    for (int i = 1; i <= stepsOfPeriod && m_parts.rise > 0; ++i) {
      const double time = m_parts.width * i / stepsOfPeriod;
      reached = -std::expm1(-time / m_parts.rise);
      add(delay + time, reached);
    }
    if (m_parts.rise == 0) {
      add(delay, 1);
      add(delay + m_parts.width, 1);
    }
    for (int i = 1; i <= stepsOfPeriod && m_parts.fall > 0; ++i) {
      const double time = tail * i / stepsOfPeriod;
      add(delay + m_parts.width + time, reached * std::exp(-time / m_parts.fall));
    }
    if (m_parts.fall == 0) {
      add(delay + m_parts.width, 0);
      add(delay + m_parts.width + margin(m_parts.width), 0);
    }
  }

  /// What is shown before and after a single shape; of one without length, as much as its delay.
  double margin(double length) const {
    if (length > 0)
      return before * length;
    return *m_settings.delay != 0 ? std::abs(*m_settings.delay) : 1;
  }

  const WaveSettings& m_settings;
  const Parts m_parts;
  const double m_low;
  const double m_high;
  double m_from = 0;
  double m_to = 0;
  std::optional<std::pair<double, double>> m_last; ///< time and share of the last corner
  WaveCurve m_curve;
};

} // namespace

WaveSettings::WaveSettings(const WaveTiming& from) : shape(from.shape) {
  for (Field field : waveFields)
    if (!from.isExpression(field))
      timing[std::size_t(field)] = from.number(field);
}

WaveCurve waveCurve(const WaveSettings& settings) {
  WaveCurve none;
  none.lack = lackOf(settings);
  return none.lack == WaveCurve::Lack::None ? CurveMaker(settings).make() : none;
}
