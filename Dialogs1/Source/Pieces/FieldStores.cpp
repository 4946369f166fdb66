#include "Pieces/FieldStores.h"

#include "BrennixAnalysisData.h"
#include "Core/Frame/Integers.h"
#include "HostSupport/Numbers.h"
#include "HostSupportQt/Text.h"

#include <algorithm>

bool operator<(const Place& a, const Place& b) {
  return a.number != b.number ? a.number < b.number : sp_CompareNoCase(a.name, b.name) < 0;
}

FieldValue FieldValue::number(double number) {
  return {Kind::Number, toQs(YString(number)), number};
}

FieldValue FieldValue::flag(bool isSet) {
  return {Kind::Flag, QString::fromLatin1(flagWord(isSet)), isSet ? 1.0 : 0.0};
}

FieldValue FieldValue::row(int index) {
  return {Kind::Row, QString::number(index), double(index)};
}

double FieldValue::asNumber() const {
  return kind == Kind::Text ? sp_ConvertEngToReal(toYs(m_text)) : m_number;
}

bool FieldValue::asFlag() const {
  return kind == Kind::Text ? equals(m_text, QString::fromLatin1(flagWord(true))) : m_number != 0;
}

int FieldValue::asRow() const {
  return kind == Kind::Text ? leadingInteger(Tocs(m_text)) : truncatedToInt(m_number);
}

bool Elements::read(const Place& place, FieldValue::Kind, FieldValue* value) const {
  *value = FieldValue::text(m_from.text(elementOf(place)));
  return true;
}

void Elements::write(const Place& place, const FieldValue& value) {
  Q_ASSERT(m_to);
  m_to->set(elementOf(place), value.asText());
}

bool Reals::read(const Place& place, FieldValue::Kind, FieldValue* value) const {
  Q_ASSERT(place.number >= 0);
  if (static_cast<unsigned>(place.number) >= m_count)
    return false;
  *value = FieldValue::number(m_reals[place.number]);
  return true;
}

void Reals::write(const Place&, const FieldValue&) {
  Q_ASSERT(false);
}

bool Bits::read(const Place& place, FieldValue::Kind, FieldValue* value) const {
  Q_ASSERT(place.number >= 0 && place.number < 32);
  *value = FieldValue::flag((m_word >> place.number & 1U) != 0);
  return true;
}

void Bits::write(const Place& place, const FieldValue& value) {
  Q_ASSERT(place.number >= 0 && place.number < 32);
  const std::uint32_t bit = 1U << place.number;
  m_word = value.asFlag() ? m_word | bit : m_word & ~bit;
}

namespace {

FieldValue::Kind kindOf(AnalysisParameterType type) {
  switch (type) {
  case AnalysisReal:
  case AnalysisInteger:
    return FieldValue::Kind::Number;
  case AnalysisFlag:
  case AnalysisSwitch:
    return FieldValue::Kind::Flag;
  case AnalysisIndex:
    return FieldValue::Kind::Row;
  case AnalysisText:
    break;
  }
  return FieldValue::Kind::Text;
}

bool isKnown(AnalysisParameterType type) {
  return type >= AnalysisReal && type <= AnalysisIndex;
}

AnalysisParameter* findParameter(const BrennixAnalysisData& block, const Place& place,
                                 FieldValue::Kind kind) {
  for (std::int32_t i = block.parameterCount; i-- > 0;) {
    AnalysisParameter& parameter = block.parameters[i];
    if (sp_CompareNoCase(parameter.name, place.name) == 0)
      return isKnown(parameter.type) && kindOf(parameter.type) == kind ? &parameter : nullptr;
  }
  return nullptr;
}

} // namespace

bool Parameters::read(const Place& place, FieldValue::Kind kind, FieldValue* value) const {
  const AnalysisParameter* found = findParameter(*m_block, place, kind);
  if (!found || !found->isSet)
    return false;
  switch (kind) {
  case FieldValue::Kind::Number:
    *value = FieldValue::number(found->type == AnalysisReal ? found->value.real
                                                            : double(found->value.integer));
    break;
  case FieldValue::Kind::Flag:
    *value = FieldValue::flag(found->value.byte != 0);
    break;
  case FieldValue::Kind::Row:
    *value = FieldValue::row(found->value.integer);
    break;
  case FieldValue::Kind::Text:
    *value = FieldValue::text(toQs(found->text));
    break;
  }
  return true;
}

void Parameters::write(const Place& place, const FieldValue& value) {
  AnalysisParameter* found = findParameter(*m_block, place, value.kind);
  if (!found)
    return;
  switch (found->type) {
  case AnalysisReal:
    found->value.real = value.asNumber();
    break;
  case AnalysisInteger:
    found->value.integer = truncatedToInt(value.asNumber());
    break;
  case AnalysisFlag:
  case AnalysisSwitch:
    found->value.byte = value.asFlag();
    break;
  case AnalysisText:
    found->text = toYs(value.asText());
    break;
  case AnalysisIndex:
    found->value.integer = value.asRow();
    break;
  }
  found->isSet = 1;
}

namespace {

OptionValue optionOf(const FieldValue& value) {
  switch (value.kind) {
  case FieldValue::Kind::Number:
    // An expression has no number of its own.
    if (!sp_IsEngNumber(value.asText()))
      break;
    return OptionValue(value.asNumber());
  case FieldValue::Kind::Flag:
    return OptionValue(value.asFlag());
  case FieldValue::Kind::Row:
    return OptionValue(value.asRow());
  case FieldValue::Kind::Text:
    break;
  }
  return OptionValue(toYs(value.asText()));
}

} // namespace

bool OptionKeys::read(const Place& place, FieldValue::Kind kind, FieldValue* value) const {
  OptionValue current;
  if (!sp_ReadOptionsInfo(place.name, &current, nullptr) ||
      current.kind() == OptionValue::Kind::None)
    return false;
  double number = 0;
  if (kind == FieldValue::Kind::Flag)
    *value = FieldValue::flag(current.toBool());
  else if (kind == FieldValue::Kind::Number && sp_IsEngNumber(current.toText(), &number))
    *value = FieldValue::number(number);
  else
    *value = FieldValue::text(toQs(current.toText()));
  return true;
}

void OptionKeys::write(const Place& place, const FieldValue& value) {
  const auto isThis = [&place](const OptionSetting& change) {
    return change.key == YString(place.name);
  };
  m_changes.erase(std::remove_if(m_changes.begin(), m_changes.end(), isThis), m_changes.end());
  FieldValue current = FieldValue::text(QString());
  // Numbers that are alike may be written in other words.
  if (!read(place, value.kind, &current) || optionOf(value) != optionOf(current))
    m_changes.push_back({YString(place.name), optionOf(value)});
}

bool OptionKeys::commit() {
  if (!sp_WriteOptions(m_changes))
    return false;
  m_changes.clear();
  return true;
}
