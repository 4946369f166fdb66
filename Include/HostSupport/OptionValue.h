#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

#include <cstdint>
#include <type_traits>

/// The tagged value of an option.
class HOSTSUPPORT_EXPORT OptionValue {
public:
  enum class Kind : std::int32_t { Text = 0, Real = 1, Bool = 2, None = 3, Integer = 4 };

  OptionValue() = default;
  OptionValue(const YString& value) : m_text(value), m_kind(Kind::Text) {}
  OptionValue(const char* value) : m_text(value), m_kind(Kind::Text) {}
  /// A template, so that nothing but a number or a `bool` comes here by way of a conversion.
  template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
  OptionValue(Number value)
      : m_text(textOf(value)), m_number(static_cast<double>(value)), m_kind(kindOf<Number>()) {}

  Kind kind() const { return m_kind; }
  bool toBool() const; ///< a text counts as `sp_GetBoolOption` has it
  int toInt() const;   ///< 0 where it is not a number
  double toReal() const;
  const YString& toText() const { return m_text; } ///< as it is stored

  friend bool operator==(const OptionValue& a, const OptionValue& b) {
    // Whatever was stored comes back as a text, so values are equal if they are stored alike.
    return (a.m_kind == Kind::None) == (b.m_kind == Kind::None) && a.m_text == b.m_text;
  }
  friend bool operator!=(const OptionValue& a, const OptionValue& b) { return !(a == b); }

private:
  template <class Number> static YString textOf(Number value) { return YString(value); }
  static YString textOf(bool value) { return value ? "true" : "false"; }
  template <class Number> static constexpr Kind kindOf() {
    return std::is_same_v<Number, bool> ? Kind::Bool
           : std::is_integral_v<Number> ? Kind::Integer
                                        : Kind::Real;
  }

  YString m_text;
  double m_number = 0;
  Kind m_kind = Kind::None;
};
