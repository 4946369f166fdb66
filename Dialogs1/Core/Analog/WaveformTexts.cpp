#include "Core/Analog/WaveformTexts.h"

#include <algorithm>
#include <cmath>

namespace {

using Field = WaveField;

constexpr double edgeShare = 1000; // of period or width in a default edge
constexpr double halfDuty = 50;
constexpr double unknownWidth = 1e-6;
constexpr double unknownEdge = 1e-9;
constexpr double longestEdge = 1e100;

using Remembered = std::optional<WaveValue>;

std::optional<double> numberOf(const Remembered& value) {
  return value && !value->isExpression() ? std::optional<double>(value->number) : std::nullopt;
}

/// Gives an edge its default length; an expression stands.
void setEdge(Remembered* edge, double length) {
  if (!*edge || !(*edge)->isExpression())
    *edge = WaveValue(length);
}

} // namespace

std::unique_ptr<Waveform> WaveformTexts::clone() const {
  return std::make_unique<WaveformTexts>(*this);
}

bool WaveformTexts::isEnabled(WaveControl control) const {
  const WaveShape shape = m_timing.shape;
  const bool isPulse = shape == WaveShape::Pulse;
  const bool hidesPeriod = m_timing.isExpression(Field::Frequency);
  const bool hidesWidth = m_timing.isExpression(Field::Width) && !hidesPeriod;
  if ((control == WaveControl::Period && hidesPeriod) ||
      (control == WaveControl::Duty && isPulse && (hidesPeriod || hidesWidth)) ||
      (control == WaveControl::DefaultEdges && (isPulse ? hidesPeriod : hidesWidth)))
    return false;
  return Waveform::isEnabled(control);
}

void WaveformTexts::open(const WaveTiming& loaded) {
  m_timing = loaded;
  if (!isExpression({Field::Frequency}) && m_timing.number(Field::Frequency) != 0)
    m_timing.set(Field::Period, 1 / m_timing.number(Field::Frequency));
  checkEdges();
  store();
  settle(m_timing.shape);
}

void WaveformTexts::checkEdges() {
  const WaveShape shape = m_timing.shape;
  const bool isPulse = shape == WaveShape::Pulse;
  if (!isPulse && shape != WaveShape::OnePulse && shape != WaveShape::ExponentialPulse)
    return;
  const double rise = m_timing.number(Field::Rise);
  const double reference = m_timing.number(isPulse ? Field::Period : Field::Width);
  m_timing.hasEqualEdges =
      !isExpression({Field::Rise, Field::Fall}) && rise == m_timing.number(Field::Fall);
  m_timing.hasDefaultEdges =
      m_timing.hasEqualEdges && std::abs(rise - reference / edgeShare) < std::abs(rise) * 1e-8;
}

void WaveformTexts::setShape(WaveShape shape) {
  const WaveShape before = m_timing.shape;
  store();
  m_timing.shape = shape;
  settle(before);
}

void WaveformTexts::edit(WaveField field, const WaveValue& value) {
  m_timing.enter(field, value);
  if (field == Field::Rise || field == Field::Fall) {
    m_timing.hasDefaultEdges = false;
    if (m_timing.hasEqualEdges)
      m_timing[field == Field::Rise ? Field::Fall : Field::Rise] = m_timing[field];
  } else if (field == Field::Period) {
    if (!isExpression({Field::Period, Field::Frequency}) && m_timing.number(Field::Period) != 0)
      m_timing.set(Field::Frequency, 1 / m_timing.number(Field::Period));
  } else if (field == Field::Width && m_timing.shape == WaveShape::Pulse) {
    dutyFollowsWidth();
  }
  if (field != Field::Period && field != Field::Frequency)
    store();
  settle(m_timing.shape);
}

void WaveformTexts::setEqualEdges(bool on) {
  m_timing.hasEqualEdges = on;
  m_timing.hasDefaultEdges = m_timing.hasDefaultEdges && on;
  if (on)
    m_timing[Field::Fall] = m_timing[Field::Rise];
  store();
  settle(m_timing.shape);
}

void WaveformTexts::setDefaultEdges(bool on) {
  m_timing.hasDefaultEdges = on;
  m_timing.hasEqualEdges = m_timing.hasEqualEdges || on;
  store();
  settle(m_timing.shape);
}

WaveformTexts::Record& WaveformTexts::recordOf(WaveShape shape) {
  return m_records[std::size_t(shape == WaveShape::ExponentialPulse ? WaveShape::OnePulse : shape)];
}

void WaveformTexts::store() {
  Record& record = current();
  record.width = m_timing[Field::Width];
  record.duty = m_timing[Field::Duty];
  record.rise = m_timing[Field::Rise];
  record.fall = m_timing[Field::Fall];
  record.hasEqualEdges = m_timing.hasEqualEdges;
  record.hasDefaultEdges = m_timing.hasDefaultEdges;
}

void WaveformTexts::settle(WaveShape before) {
  Record& record = current();
  record.period = std::nullopt;
  if (!isExpression({Field::Frequency}) && m_timing.number(Field::Frequency) != 0)
    record.period = 1 / m_timing.number(Field::Frequency);
  compute(&record, before);
  apply(record);
}

void WaveformTexts::compute(Record* record, WaveShape before) {
  switch (m_timing.shape) {
  case WaveShape::Square:
    computeSquare(record);
    break;
  case WaveShape::Triangle:
  case WaveShape::Sawtooth:
    computeTriangle(record);
    break;
  case WaveShape::Sine:
  case WaveShape::Cosine:
    *record = {record->period, WaveValue(0), WaveValue(halfDuty), WaveValue(0), WaveValue(0),
               true,           true};
    break;
  case WaveShape::Pulse:
    computePulse(record);
    break;
  case WaveShape::OnePulse:
  case WaveShape::ExponentialPulse:
    computeSinglePulse(record, before);
    break;
  case WaveShape::Step:
    record->hasEqualEdges = record->hasEqualEdges.value_or(false);
    record->hasDefaultEdges = record->hasDefaultEdges.value_or(false);
    // Only the user can have asked for default edges here.
    if (const auto width = numberOf(record->width); width && *record->hasDefaultEdges) {
      setEdge(&record->rise, *width / edgeShare);
      setEdge(&record->fall, *width / edgeShare);
    }
    break;
  }
}

void WaveformTexts::computeSquare(Record* record) const {
  record->duty = WaveValue(halfDuty);
  record->hasEqualEdges = true;
  record->hasDefaultEdges = true;
  if (!m_isBrennix && !record->period) {
    record->rise.reset();
    record->fall.reset();
    return;
  }
  const double edge = m_isBrennix ? 0 : *record->period / edgeShare;
  record->rise = WaveValue(edge);
  record->fall = WaveValue(edge);
  if (record->period)
    record->width = WaveValue(*record->period * 0.5 - edge);
}

void WaveformTexts::computeTriangle(Record* record) const {
  constexpr double almostWhole = 99.9;
  const bool isSawtooth = m_timing.shape == WaveShape::Sawtooth;
  if (isSawtooth) // which is no matter of taste
    record->duty.reset();
  if (!record->duty)
    record->duty = WaveValue(!isSawtooth ? halfDuty : m_isBrennix ? 100 : almostWhole);
  const auto duty = numberOf(record->duty);
  const bool isKnown = record->period && duty;
  record->width = WaveValue(0);
  record->rise = WaveValue(isKnown ? *duty / 100 * *record->period : 0);
  record->fall = WaveValue(isKnown ? (1 - *duty / 100) * *record->period : 0);
  record->hasEqualEdges = false;
  record->hasDefaultEdges = true;
}

void WaveformTexts::computePulse(Record* record) const {
  record->hasDefaultEdges = record->hasDefaultEdges.value_or(true);
  record->hasEqualEdges = record->hasEqualEdges.value_or(*record->hasDefaultEdges);
  const double edge = record->period ? *record->period / edgeShare : unknownEdge;
  for (Remembered* each : {&record->rise, &record->fall})
    if (!*each || (*record->hasDefaultEdges && record->period))
      setEdge(each, edge);
  if (!record->duty)
    record->duty = WaveValue(halfDuty);
  const auto rise = numberOf(record->rise);
  const auto fall = numberOf(record->fall);
  const auto duty = numberOf(record->duty);
  if (record->width && record->width->isExpression())
    return;
  if (record->period && rise && fall && duty)
    record->width = WaveValue(*duty / 100 * *record->period - (*fall + *rise) * 0.5);
  else if (!record->width)
    record->width = WaveValue(unknownWidth);
}

void WaveformTexts::computeSinglePulse(Record* record, WaveShape before) {
  if (!record->width)
    record->width = firstWidth(before);
  record->hasEqualEdges = record->hasEqualEdges.value_or(true);
  record->hasDefaultEdges = record->hasDefaultEdges.value_or(true);
  const auto width = numberOf(record->width);
  const double edge = width ? *width / edgeShare : unknownEdge;
  for (Remembered* each : {&record->rise, &record->fall})
    if (!*each || (*record->hasDefaultEdges && width))
      setEdge(each, edge);
}

WaveValue WaveformTexts::firstWidth(WaveShape before) {
  const Record& left = recordOf(before);
  switch (before) {
  case WaveShape::Square:
  case WaveShape::Pulse:
    return left.width.value_or(unknownWidth);
  case WaveShape::Triangle:
  case WaveShape::Sawtooth:
  case WaveShape::Sine:
  case WaveShape::Cosine:
    return left.period ? *left.period * 0.5 : unknownWidth;
  case WaveShape::OnePulse:
  case WaveShape::ExponentialPulse:
  case WaveShape::Step:
    break;
  }
  return unknownWidth;
}

void WaveformTexts::apply(const Record& record) {
  for (Field edge : {Field::Rise, Field::Fall})
    m_timing.limitsOf(edge).max = longestEdge;
  if (record.period)
    m_timing.set(Field::Period, *record.period);
  show(Field::Width, record.width);
  show(Field::Duty, record.duty);
  show(Field::Rise, record.rise);
  show(Field::Fall, record.fall);
  m_timing.hasEqualEdges = record.hasEqualEdges.value_or(m_timing.hasEqualEdges);
  m_timing.hasDefaultEdges = record.hasDefaultEdges.value_or(m_timing.hasDefaultEdges);
  if (m_timing.shape == WaveShape::Pulse && record.period &&
      !isExpression({Field::Duty, Field::Rise, Field::Fall}))
    limitEdges();
}

void WaveformTexts::show(WaveField field, const std::optional<WaveValue>& value) {
  if (value && value->isExpression())
    m_timing[field] = *value;
  else if (value)
    m_timing.set(field, value->number);
}

void WaveformTexts::limitEdges() {
  const double period = m_timing.number(Field::Period);
  const double on = period * m_timing.number(Field::Duty) / 100;
  const double off = (1 - m_timing.number(Field::Duty) / 100) * period;
  const double shorter = std::max(std::min(on, off), 0.0);
  const auto limit = [this, shorter](Field edge, Field other) {
    m_timing.setMax(edge, m_timing.hasEqualEdges
                              ? shorter
                              : std::max(2 * shorter - m_timing.number(other), 0.0));
  };
  limit(Field::Rise, Field::Fall);
  limit(Field::Fall, Field::Rise);
  if (!m_timing.isExpression(Field::Width)) // the edges may have become shorter
    m_timing.set(Field::Width,
                 on - (m_timing.number(Field::Fall) + m_timing.number(Field::Rise)) * 0.5);
}

void WaveformTexts::dutyFollowsWidth() {
  const double period = m_timing.number(Field::Period);
  if (period == 0 ||
      isExpression({Field::Rise, Field::Fall, Field::Duty, Field::Frequency, Field::Width}))
    return;
  const double edges = (m_timing.number(Field::Fall) + m_timing.number(Field::Rise)) * 0.5;
  m_timing.set(Field::Duty, (m_timing.number(Field::Width) + edges) / period * 100);
}

bool WaveformTexts::isExpression(std::initializer_list<WaveField> any) const {
  return std::any_of(any.begin(), any.end(),
                     [this](Field field) { return m_timing.isExpression(field); });
}
