#include "Core/Analog/Waveform.h"

#include "Core/Pieces/AsWritten.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

constexpr double longest = 1e18;
constexpr double wholeDuty = 100; // per cent

constexpr unsigned setOf(std::initializer_list<WaveShape> shapes) {
  unsigned set = 0;
  for (WaveShape shape : shapes)
    set |= 1U << unsigned(shape);
  return set;
}

constexpr unsigned periodicShapes =
    setOf({WaveShape::Square, WaveShape::Triangle, WaveShape::Sawtooth, WaveShape::Sine,
           WaveShape::Cosine, WaveShape::Pulse});
constexpr unsigned edgedShapes = setOf({WaveShape::Pulse, WaveShape::OnePulse, WaveShape::Step});

unsigned shapesWith(WaveControl control) {
  switch (control) {
  case WaveControl::Width:
  case WaveControl::Fall:
  case WaveControl::EqualEdges:
  case WaveControl::DefaultEdges:
    return edgedShapes;
  case WaveControl::Rise:
    return edgedShapes | setOf({WaveShape::ExponentialPulse});
  case WaveControl::Duty:
    return setOf({WaveShape::Pulse, WaveShape::Triangle});
  case WaveControl::Damping:
    return setOf({WaveShape::Sine, WaveShape::Cosine});
  case WaveControl::Period:
  case WaveControl::Frequency:
  case WaveControl::Start:
    break;
  }
  return periodicShapes;
}

bool contains(unsigned set, WaveShape shape) {
  return (set >> unsigned(shape)) & 1;
}

double taken(double value, const WaveLimits& limits) {
  return std::min(std::max(value, limits.min), limits.max);
}

/// Whether two numbers that were computed from values of this size are one.
bool differByRounding(double a, double b, double scale) {
  constexpr double rounding = 16 * std::numeric_limits<double>::epsilon();
  return b != 0 && std::abs(a - b) <= rounding * std::max({scale, std::abs(a), std::abs(b)});
}

/// Takes a level that was computed; one that was typed stands where that is the same.
void follow(std::optional<double>* level, double computed, double scale) {
  if (!*level || !differByRounding(**level, computed, scale))
    *level = asWritten(computed);
}

} // namespace

WaveShape waveShapeOf(int number) {
  return number >= 0 && number < waveShapeCount ? WaveShape(number) : WaveShape::Square;
}

bool isPeriodic(WaveShape shape) {
  return contains(periodicShapes, shape);
}

WaveTiming::WaveTiming() {
  limitsOf(WaveField::Width).max = longest;
  limitsOf(WaveField::Duty).max = wholeDuty;
}

void WaveTiming::enter(WaveField field, const WaveValue& value) {
  (*this)[field] = value.isExpression() ? value : WaveValue(taken(value.number, limitsOf(field)));
}

void WaveTiming::set(WaveField field, double value) {
  if (std::isnan(value))
    return;
  WaveValue& present = (*this)[field];
  // A width is what is left of the period, and as exact as that.
  const double scale = field == WaveField::Width ? std::abs(number(WaveField::Period)) : 0;
  if (present.isExpression() || !differByRounding(present.number, value, scale))
    present = taken(asWritten(value), limitsOf(field));
}

void WaveTiming::setMin(WaveField field, double value) {
  limitsOf(field).min = value;
  if (!isExpression(field))
    (*this)[field] = taken(number(field), limitsOf(field));
}

void WaveTiming::setMax(WaveField field, double value) {
  limitsOf(field).max = value;
  if (!isExpression(field))
    (*this)[field] = taken(number(field), limitsOf(field));
}

bool Waveform::isEnabled(WaveControl control) const {
  return contains(shapesWith(control), m_timing.shape);
}

void WaveLevels::followPulse() {
  if (!initial || !pulse)
    return;
  const double scale = std::max(std::abs(*initial), std::abs(*pulse));
  follow(&offset, (*pulse + *initial) * 0.5, scale);
  follow(&amplitude, *pulse - *initial, scale);
}

void WaveLevels::followOffset() {
  if (!offset || !amplitude || !initial || !pulse)
    return;
  const double scale = std::max(std::abs(*offset), std::abs(*amplitude));
  follow(&initial, *offset - *amplitude * 0.5, scale);
  follow(&pulse, *offset + *amplitude * 0.5, scale);
}
