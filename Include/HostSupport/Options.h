#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/OptionValue.h"
#include "HostSupport/YString.h"

#include <type_traits>
#include <vector>

// Options are plain keys without a section; settings ("configuration") have a section and a key.
// Both persist as text. Each write goes to the file at once and atomically; writers in several
// processes do not lose each other's keys, and readers see another process's write at their next
// call. A damaged file is set aside beside the new one and reported (`sp_SetMessageSink`). Numbers
// and flags that somebody wrote into a file by hand are read as texts.

HOSTSUPPORT_EXPORT YString sp_GetStringOption(const char* key); ///< empty if not set
/// True if the key is set and not false: "false", "0", "no" and "off" in any case and the empty
/// text are false. `exists`, which may be null, tells whether it is set.
HOSTSUPPORT_EXPORT bool sp_GetBoolOption(const char* key, bool* exists = nullptr);
HOSTSUPPORT_EXPORT int sp_GetIntOption(const char* key); ///< 0 if not set
/// A colour packed with red in the low byte (0xBBGGRR), from any text that `sp_ReadColour` takes;
/// of a key that is not set, the declared default. `defaultColour` where that can not be read.
HOSTSUPPORT_EXPORT int sp_GetColourOption(const char* key, int defaultColour);
/// False when it could not be stored; the value then stands as it was. An `OptionValue` of kind
/// `None` removes the key.
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const YString& value);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const char* value);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const YString& key, const OptionValue& value);
/// A `bool` is stored as "true" or "false", a number as its digits.
template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
bool sp_WriteOption(const YString& key, Number value) {
  return sp_WriteOption(key, OptionValue(value));
}
HOSTSUPPORT_EXPORT bool sp_RemoveOption(const YString& key);

/// A key with what it is to be set to, as `sp_WriteOption` takes it.
struct OptionSetting {
  YString key;
  OptionValue value;
};
/// Writes all of them at once, the later ones over the earlier; false where they could not be
/// stored, and then each key stands as it was.
HOSTSUPPORT_EXPORT bool sp_WriteOptions(const std::vector<OptionSetting>& settings);

/// Current value (the default, where the key is not set) and default of a key; either pointer may
/// be null. Where the declaration has a default, the current value is of its kind: it is the
/// default if what is stored cannot be read as a number. Else it is a `bool` where "true" or
/// "false" is stored, in any letter case, and otherwise a text. False for a key that is neither set
/// nor declared.
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
/// The same for what nobody should wait for, a window's place say. Where another program keeps the
/// file busy it gives up after a tenth of a second, and for the next half minute at once.
HOSTSUPPORT_EXPORT bool sp_RememberSetting(const char* section, const char* key, const char* value);
