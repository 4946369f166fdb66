#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

#include <cstdint>

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

// Options are plain keys without a section; settings ("configuration") have a section and a key.
// Both persist as text. Each write goes to the file at once and atomically; writers in several
// processes do not lose each other's keys, and readers see another process's write at their next
// call. A damaged file is set aside beside the new one and reported (`sp_SetMessageSink`).

HOSTSUPPORT_EXPORT YString sp_GetStringOption(const char* key); ///< empty if not set
/// True if the key is set and not false: "false", "0", "no" and "off" in any case and the empty
/// text are false. `exists`, which may be null, tells whether it is set.
HOSTSUPPORT_EXPORT bool sp_GetBoolOption(const char* key, bool* exists = nullptr);
HOSTSUPPORT_EXPORT int sp_GetIntOption(const char* key); ///< 0 if not set
/// A colour packed with red in the low byte (0xBBGGRR), from "#rrggbb" or the packed number; of a
/// key that is not set, the declared default. `defaultColour` where neither can be read.
HOSTSUPPORT_EXPORT int sp_GetColourOption(const char* key, int defaultColour);
/// False when it could not be stored; the value then stands as it was.
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const YString& value);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const char* value);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, bool value);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const OptionValue& value);
HOSTSUPPORT_EXPORT bool sp_RemoveOption(const YString& key);
/// Current value (the default, where the key is not set) and default of a key; either pointer may
/// be null. False for a key that is neither set nor declared.
HOSTSUPPORT_EXPORT bool sp_ReadOptionsInfo(const char* key, OptionValue* current,
                                           OptionValue* defaultValue);

/// Non-zero on success; `*out` is untouched where the key is not set.
HOSTSUPPORT_EXPORT int cfgman_GetConfigSetting(const char* section, const char* key, YString* out,
                                               bool = false);
/// Into a buffer of `size` bytes; 0, too, where the value does not fit.
HOSTSUPPORT_EXPORT int cfgman_GetConfigSetting(const char* section, const char* key, char* buffer,
                                               int size, bool = false);
/// Non-zero on success. A null `value` removes the key.
HOSTSUPPORT_EXPORT int cfgman_WriteConfigSetting(const char* section, const char* key,
                                                 const char* value);
