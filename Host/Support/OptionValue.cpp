#include "HostSupport/OptionValue.h"

#include "HostSupport/Numbers.h"

#include <algorithm>
#include <limits>

namespace {

bool textToBool(const YString& text) {
  static constexpr const char* falseWords[] = {"", "false", "0", "no", "off"};
  return std::none_of(std::begin(falseWords), std::end(falseWords),
                      [&](const char* word) { return sp_CompareNoCase(text, word) == 0; });
}

int clampToInt(double value) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

} // namespace

bool OptionValue::toBool() const {
  return m_kind == Kind::Text ? textToBool(m_text) : m_kind != Kind::None && m_number != 0;
}

int OptionValue::toInt() const {
  const double value = toReal();
  return value == value ? clampToInt(value) : 0;
}

double OptionValue::toReal() const {
  double value = m_number;
  if (m_kind == Kind::Text)
    sp_IsEngNumber(m_text, &value);
  return value;
}

YString OptionValue::toText() const {
  switch (m_kind) {
  case Kind::None:
    return YString();
  case Kind::Bool:
    return m_number != 0 ? "true" : "false";
  case Kind::Integer:
  case Kind::Real:
    return YString(m_number);
  case Kind::Text:
    break;
  }
  return m_text;
}

// Whatever was stored comes back as a text, so values count as equal if they are stored alike.
bool operator==(const OptionValue& a, const OptionValue& b) {
  const bool isNone = a.m_kind == OptionValue::Kind::None;
  return isNone == (b.m_kind == OptionValue::Kind::None) && a.toText() == b.toText();
}
