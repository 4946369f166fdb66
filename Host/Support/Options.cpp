#include "HostSupport/Options.h"

#include "HostSupport/Numbers.h"
#include "HostSupport/Registry.h"
#include "HostSupport/System.h"

#include "SettingsFile.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <mutex>

namespace {

struct Store {
  std::mutex mutex;
  SettingsFile options{"options.json", false};
  SettingsFile settings{"settings.json", true};
};

/// Never destroyed: static objects of modules may still store something as the process ends.
Store& store() {
  static Store* const instance = new Store;
  return *instance;
}

/// Runs `action` on one of the files, then tells the user what it had to say: without the lock,
/// since whoever shows messages may ask for options.
template <class Action> auto withFile(SettingsFile Store::*file, Action action) {
  Store& all = store();
  std::unique_lock<std::mutex> lock(all.mutex);
  SettingsFile& settings = all.*file;
  const auto result = action(settings);
  const std::vector<std::string> messages = settings.takeMessages();
  lock.unlock();
  for (const std::string& message : messages)
    sp_ReportMessage(message.c_str());
  return result;
}

const std::string noSection;

bool find(SettingsFile Store::*file, const std::string& section, const char* key, YString* value) {
  if (!key || !*key)
    return false;
  return withFile(file, [&](SettingsFile& settings) {
    const std::string* found = settings.find(section, key);
    if (found)
      *value = YString(*found);
    return found != nullptr;
  });
}

bool write(SettingsFile Store::*file, const std::string& section, const char* key,
           const std::string* value) {
  if (!key || !*key)
    return false;
  return withFile(file,
                  [&](SettingsFile& settings) { return settings.write(section, key, value); });
}

bool findOption(const char* key, YString* value) {
  return find(&Store::options, noSection, key, value);
}

bool textToBool(const YString& text) {
  static constexpr const char* falseWords[] = {"", "false", "0", "no", "off"};
  return std::none_of(std::begin(falseWords), std::end(falseWords),
                      [&](const char* word) { return sp_CompareNoCase(text, word) == 0; });
}

int clampToInt(double value) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

/// Reads "#rrggbb", or the packed number itself, with red in the low byte.
bool readColour(const YString& text, int* colour) {
  const char* const start = text;
  const char* const end = start + text.length();
  if (*start == '#') {
    unsigned value = 0;
    const auto [stop, error] = std::from_chars(start + 1, end, value, 16);
    if (error != std::errc() || stop != end || text.length() != 7)
      return false;
    *colour = static_cast<int>(value >> 16 | (value & 0xFF00) | (value & 0xFF) << 16);
    return true;
  }
  double value = 0;
  if (!sp_IsEngNumber(text, &value) || !(value >= 0 && value <= 0xFFFFFF))
    return false;
  *colour = static_cast<int>(value);
  return true;
}

/// What a key's declaration says; false if nobody has declared it.
bool findDeclaration(const char* key, OptionValue* defaultValue) {
  const std::vector<OptionRecord> options = sp_RegisteredOptions();
  const auto found = std::find_if(options.begin(), options.end(),
                                  [key](const OptionRecord& option) { return option.name == key; });
  if (found == options.end())
    return false;
  *defaultValue =
      found->defaultValue.empty() ? OptionValue() : OptionValue(YString(found->defaultValue));
  return true;
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

YString sp_GetStringOption(const char* key) {
  YString value;
  findOption(key, &value);
  return value;
}

bool sp_GetBoolOption(const char* key, bool* exists) {
  YString value;
  const bool found = findOption(key, &value);
  if (exists)
    *exists = found;
  return found && textToBool(value);
}

int sp_GetIntOption(const char* key) {
  return OptionValue(sp_GetStringOption(key)).toInt();
}

int sp_GetColourOption(const char* key, int defaultColour) {
  OptionValue current;
  int colour = defaultColour;
  if (sp_ReadOptionsInfo(key, &current, nullptr))
    readColour(current.toText(), &colour);
  return colour;
}

bool sp_WriteOption(const YString& key, const YString& value) {
  const std::string text(value.c_str(), value.length());
  return write(&Store::options, noSection, key, &text);
}

bool sp_WriteOption(const YString& key, const char* value) {
  return sp_WriteOption(key, YString(value));
}

bool sp_WriteOption(const YString& key, bool value) {
  return sp_WriteOption(key, OptionValue(value));
}

bool sp_WriteOption(const YString& key, const OptionValue& value) {
  return sp_WriteOption(key, value.toText());
}

bool sp_RemoveOption(const YString& key) {
  return write(&Store::options, noSection, key, nullptr);
}

bool sp_ReadOptionsInfo(const char* key, OptionValue* current, OptionValue* defaultValue) {
  YString stored;
  OptionValue declared;
  const bool isStored = findOption(key, &stored);
  const bool isDeclared = findDeclaration(key ? key : "", &declared);
  if (current)
    *current = isStored ? OptionValue(stored) : declared;
  if (defaultValue)
    *defaultValue = declared;
  return isStored || isDeclared;
}

int cfgman_GetConfigSetting(const char* section, const char* key, YString* out, bool) {
  YString value;
  if (!section || !find(&Store::settings, section, key, &value))
    return 0;
  if (out)
    *out = value;
  return 1;
}

int cfgman_GetConfigSetting(const char* section, const char* key, char* buffer, int size, bool) {
  YString value;
  if (!cfgman_GetConfigSetting(section, key, &value) || !buffer || size <= 0 ||
      value.length() >= static_cast<std::size_t>(size))
    return 0;
  std::memcpy(buffer, value.c_str(), value.length() + 1);
  return 1;
}

int cfgman_WriteConfigSetting(const char* section, const char* key, const char* value) {
  if (!section)
    return 0;
  const std::string text = value ? value : "";
  return write(&Store::settings, section, key, value ? &text : nullptr) ? 1 : 0;
}
