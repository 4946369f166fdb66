#include "Core/Analog/WaveformNumbers.h"

#include <cmath>

namespace {

using Field = WaveField;

constexpr double longestWidth = 1e18;
constexpr double longestFreeWidth = 1e12; // of a shape without a period
constexpr double edgeShare = 100;         // of the width in a default edge
// A pulse lasts its width and half of each edge, 1.01 widths with default edges.
constexpr double defaultPulse = 1.01;

bool isTiming(Field field) {
  return field == Field::Period || field == Field::Width;
}

} // namespace

std::unique_ptr<Waveform> WaveformNumbers::clone() const {
  return std::make_unique<WaveformNumbers>(*this);
}

void WaveformNumbers::open(const WaveTiming& loaded) {
  m_timing = loaded;
  m_timing.hasEqualEdges = false;
  m_timing.hasDefaultEdges = false;
  setShape(loaded.shape);
}

void WaveformNumbers::setShape(WaveShape shape) {
  m_timing.shape = shape;
  checkEdges();
  constexpr std::pair<Field, WaveControl> fields[] = {
      {Field::Rise, WaveControl::Rise},           {Field::Fall, WaveControl::Fall},
      {Field::Width, WaveControl::Width},         {Field::Period, WaveControl::Period},
      {Field::Frequency, WaveControl::Frequency}, {Field::Duty, WaveControl::Duty}};
  for (const auto& [field, control] : fields)
    if (isEnabled(control))
      update(field);
}

void WaveformNumbers::checkEdges() {
  if (m_timing.shape == WaveShape::Step) {
    m_timing.hasEqualEdges = false;
    m_timing.hasDefaultEdges = false;
    return;
  }
  const double rise = m_timing.number(Field::Rise);
  if (m_timing.hasEqualEdges || rise != m_timing.number(Field::Fall))
    return;
  m_timing.hasEqualEdges = true;
  if (std::abs(rise - m_timing.number(Field::Width) / edgeShare) < std::abs(rise) * 1e-8)
    m_timing.hasDefaultEdges = true;
}

void WaveformNumbers::edit(WaveField field, const WaveValue& value) {
  m_timing.enter(field, value.number);
  if (field != Field::Rise && field != Field::Fall) {
    update(field);
    return;
  }
  m_timing.hasDefaultEdges = false;
  if (field == Field::Fall)
    m_timing.hasEqualEdges = false;
  else if (m_timing.hasEqualEdges)
    m_timing[Field::Fall] = m_timing[Field::Rise];
  update(Field::Width);
}

void WaveformNumbers::setEqualEdges(bool on) {
  m_timing.hasEqualEdges = on;
  if (!on) {
    m_timing.hasDefaultEdges = false;
    return;
  }
  m_timing[Field::Fall] = m_timing[Field::Rise];
  update(Field::Width); // the other edge is a part of the pulse, too
}

void WaveformNumbers::setDefaultEdges(bool on) {
  m_timing.hasDefaultEdges = on;
  if (!on)
    return;
  m_timing.hasEqualEdges = true;
  update(Field::Width);
}

void WaveformNumbers::update(WaveField sender) {
  const double widthBefore = m_timing.number(Field::Width);
  if (m_timing.shape != WaveShape::Pulse) {
    m_timing.setMin(Field::Period, 0);
    m_timing.setMax(Field::Width, longestWidth);
  }
  if (isTiming(sender))
    followTimes(sender);
  else if (sender == Field::Frequency || sender == Field::Duty)
    followFrequency();
  if (m_timing.number(Field::Width) != widthBefore || sender == Field::Width)
    edgesFollowWidth();
}

void WaveformNumbers::followTimes(WaveField sender) {
  const bool hasPeriod = isPeriodic(m_timing.shape);
  if (m_timing.number(Field::Period) == 0 && m_timing.number(Field::Frequency) != 0)
    m_timing.set(Field::Period, 1 / m_timing.number(Field::Frequency));
  if (m_timing.number(Field::Period) == 0)
    return;
  // The limits first: what they move is what the rest follows.
  if (sender == Field::Width)
    m_timing.setMin(Field::Period, hasPeriod ? m_timing.number(Field::Width) : 0);
  else
    m_timing.setMax(Field::Width, hasPeriod ? m_timing.number(Field::Period) : longestFreeWidth);
  m_timing.set(Field::Frequency, 1 / m_timing.number(Field::Period));
  dutyFollowsTimes();
}

void WaveformNumbers::followFrequency() {
  if (m_timing.number(Field::Frequency) == 0 && m_timing.number(Field::Period) != 0)
    m_timing.set(Field::Frequency, 1 / m_timing.number(Field::Period));
  if (m_timing.number(Field::Frequency) == 0)
    return;
  const double period = 1 / m_timing.number(Field::Frequency);
  const double pulse = m_timing.number(Field::Duty) / 100 * period;
  const double width = m_timing.hasDefaultEdges ? pulse / defaultPulse : pulse - edges();
  m_timing.limitsOf(Field::Period).min = 0;
  m_timing.limitsOf(Field::Width).max = longestWidth;
  m_timing.set(Field::Period, period);
  m_timing.set(Field::Width, width);
  // The limits are what stands there, which may be what was typed.
  if (isPeriodic(m_timing.shape))
    m_timing.setMax(Field::Width, m_timing.number(Field::Period));
  if (m_timing.shape != WaveShape::Pulse)
    return; // a width that nobody sees keeps no period away
  m_timing.setMin(Field::Period, m_timing.number(Field::Width));
  if (width < 0) // there was no room for the edges
    dutyFollowsTimes();
}

void WaveformNumbers::dutyFollowsTimes() {
  const double period = m_timing.number(Field::Period);
  const double width = m_timing.number(Field::Width);
  m_timing.set(Field::Duty, m_timing.hasDefaultEdges ? width / period * 100 * defaultPulse
                                                     : (width + edges()) / period * 100);
}

void WaveformNumbers::edgesFollowWidth() {
  if (!m_timing.hasDefaultEdges)
    return;
  m_timing.set(Field::Rise, m_timing.number(Field::Width) / edgeShare);
  m_timing[Field::Fall] = m_timing[Field::Rise];
}

double WaveformNumbers::edges() const {
  return (m_timing.number(Field::Rise) + m_timing.number(Field::Fall)) * 0.5;
}
