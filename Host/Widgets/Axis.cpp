#include "HostWidgets/Axis.h"

#include "AxisData.h"

#include <cmath>

namespace {

constexpr unsigned showLabels = 2;

} // namespace

Axis::Axis() : m_data(std::make_shared<AxisData>()) {}

Axis::Axis(const Axis& other) : Axis() {
  *this = other;
}

Axis& Axis::operator=(const Axis& other) {
  m_data->range = other.m_data->range;
  m_data->isLogarithmic = other.m_data->isLogarithmic;
  m_data->lines = other.m_data->lines;
  m_data->minorLines = other.m_data->minorLines;
  m_data->labels = other.m_data->labels;
  emit m_data->changed();
  return *this;
}

Axis::~Axis() = default;

void Axis::setAxisParams(double minimum, double maximum, unsigned majorLines, unsigned minorLines,
                         unsigned, unsigned labels) {
  m_data->range = scaleRange(minimum, maximum, m_data->isLogarithmic);
  m_data->lines = majorLines;
  m_data->minorLines = minorLines;
  m_data->labels = labels == showLabels;
  emit m_data->changed();
}

void Axis::adjustAxis() {
  PlotRange& range = m_data->range;
  range = m_data->isLogarithmic ? scaleRange(valueAt(std::floor(range.low), true),
                                             valueAt(std::ceil(range.high), true), true)
                                : roundedRange(range, &m_data->lines);
  emit m_data->changed();
}

void Axis::setLogarithmic(bool on) {
  if (on == m_data->isLogarithmic)
    return;
  m_data->range = scaleRange(minimum(), maximum(), on);
  m_data->isLogarithmic = on;
  emit m_data->changed();
}

bool Axis::isLogarithmic() const {
  return m_data->isLogarithmic;
}

double Axis::minimum() const {
  return valueAt(m_data->range.low, m_data->isLogarithmic);
}

double Axis::maximum() const {
  return valueAt(m_data->range.high, m_data->isLogarithmic);
}
