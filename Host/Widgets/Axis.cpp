#include "HostWidgets/Axis.h"

#include "AxisData.h"

namespace {

constexpr unsigned showLabels = 2;

} // namespace

Axis::Axis() : m_data(std::make_shared<AxisData>()) {}

Axis::Axis(const Axis& other) : Axis() {
  *this = other;
}

Axis& Axis::operator=(const Axis& other) {
  m_data->range = other.m_data->range;
  m_data->lines = other.m_data->lines;
  m_data->minorLines = other.m_data->minorLines;
  m_data->labels = other.m_data->labels;
  emit m_data->changed();
  return *this;
}

Axis::~Axis() = default;

void Axis::setAxisParams(double minimum, double maximum, unsigned majorLines, unsigned minorLines,
                         unsigned, unsigned labels) {
  m_data->range = usableRange(minimum, maximum);
  m_data->lines = majorLines;
  m_data->minorLines = minorLines;
  m_data->labels = labels == showLabels;
  emit m_data->changed();
}

void Axis::adjustAxis() {
  m_data->range = roundedRange(m_data->range, &m_data->lines);
  emit m_data->changed();
}

double Axis::minimum() const {
  return m_data->range.low;
}

double Axis::maximum() const {
  return m_data->range.high;
}
