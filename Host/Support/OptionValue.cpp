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
