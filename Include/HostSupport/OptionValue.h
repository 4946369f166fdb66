#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

/// The tagged value of an option.
class HOSTSUPPORT_EXPORT OptionValue {
public:
  enum class Kind { None, Bool, Integer, Real, Text };

  OptionValue() = default;
  OptionValue(bool value) : m_kind(Kind::Bool), m_number(value) {}
  OptionValue(int value) : m_kind(Kind::Integer), m_number(value) {}
  OptionValue(double value) : m_kind(Kind::Real), m_number(value) {}
  OptionValue(const YString& value) : m_kind(Kind::Text), m_text(value) {}
  OptionValue(const char* value) : m_kind(Kind::Text), m_text(value) {}

  Kind kind() const { return m_kind; }
  bool toBool() const; ///< a text counts as `sp_GetBoolOption` has it
  int toInt() const;   ///< 0 where it is no number
  double toReal() const;
  YString toText() const; ///< as it is stored

  friend HOSTSUPPORT_EXPORT bool operator==(const OptionValue& a, const OptionValue& b);
  friend bool operator!=(const OptionValue& a, const OptionValue& b) { return !(a == b); }

private:
  Kind m_kind = Kind::None;
  double m_number = 0;
  YString m_text;
};
