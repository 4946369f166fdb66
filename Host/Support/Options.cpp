#include "HostSupport/Options.h"

#include "HostSupport/Colours.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Registry.h"
#include "HostSupport/System.h"

#include "Locked.h"
#include "SettingsFile.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

struct Store {
  std::mutex mutex;
  SettingsFile options{"options.json", false};
  SettingsFile settings{"settings.json", true};
};

/// Runs `action` on one of the files, then tells the user what it had to say: without the lock,
/// since whoever shows messages may ask for options.
template <class Action> auto withFile(SettingsFile Store::*file, Action action) {
  std::optional<Locked<Store>> all(std::in_place);
  SettingsFile& settings = (**all).*file;
  const auto result = action(settings);
  const std::vector<std::string> messages = settings.takeMessages();
  all.reset();
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

bool write(SettingsFile Store::*file, const std::vector<SettingsFile::Change>& changes,
           SettingsFile::Worth worth = SettingsFile::Worth::Set) {
  for (const SettingsFile::Change& change : changes)
    if (change.key.empty())
      return false;
  return withFile(file, [&](SettingsFile& settings) { return settings.write(changes, worth); });
}

SettingsFile::Change changeOf(const OptionSetting& setting) {
  SettingsFile::Change change{noSection, setting.key.c_str(), std::nullopt};
  if (setting.value.kind() != OptionValue::Kind::None) {
    const YString text = setting.value.toText();
    change.value.emplace(text.c_str(), text.length());
  }
  return change;
}

bool findOption(const char* key, YString* value) {
  return find(&Store::options, noSection, key, value);
}

/// The words that a flag is stored as. Others that count as true or false are, where no kind is
/// declared, texts: "on" and "off" may stand among further choices.
bool isFlagWord(const YString& text) {
  return sp_CompareNoCase(text, "true") == 0 || sp_CompareNoCase(text, "false") == 0;
}

/// What is stored, as a value of the declared kind.
OptionValue readAs(const OptionValue& declared, const OptionValue& stored) {
  switch (declared.kind()) {
  case OptionValue::Kind::Bool:
    return stored.toBool();
  case OptionValue::Kind::Integer:
    return sp_IsEngNumber(stored.toText()) ? stored.toInt() : declared;
  case OptionValue::Kind::Real:
    return sp_IsEngNumber(stored.toText()) ? stored.toReal() : declared;
  case OptionValue::Kind::None:
    return isFlagWord(stored.toText()) ? OptionValue(stored.toBool()) : stored;
  case OptionValue::Kind::Text:
    break;
  }
  return stored;
}

} // namespace

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
  return found && OptionValue(value).toBool();
}

int sp_GetIntOption(const char* key) {
  return OptionValue(sp_GetStringOption(key)).toInt();
}

int sp_GetColourOption(const char* key, int defaultColour) {
  OptionValue current;
  int colour = defaultColour;
  if (sp_ReadOptionsInfo(key, &current, nullptr))
    sp_ReadColour(current.toText(), &colour);
  return colour;
}

bool sp_WriteOption(const YString& key, const YString& value) {
  return sp_WriteOption(key, OptionValue(value));
}

bool sp_WriteOption(const YString& key, const char* value) {
  return sp_WriteOption(key, OptionValue(value));
}

bool sp_WriteOption(const YString& key, const OptionValue& value) {
  return sp_WriteOptions({{key, value}});
}

bool sp_RemoveOption(const YString& key) {
  return sp_WriteOption(key, OptionValue());
}

bool sp_WriteOptions(const std::vector<OptionSetting>& settings) {
  std::vector<SettingsFile::Change> changes(settings.size());
  std::transform(settings.begin(), settings.end(), changes.begin(), changeOf);
  return write(&Store::options, changes);
}

bool sp_ReadOptionsInfo(const char* key, OptionValue* current, OptionValue* defaultValue) {
  YString stored;
  OptionValue declared;
  const bool isStored = findOption(key, &stored);
  const bool isDeclared = sp_FindOption(key, &declared);
  if (current)
    *current = isStored ? readAs(declared, stored) : declared;
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

static bool writeSetting(const char* section, const char* key, const char* value,
                         SettingsFile::Worth worth) {
  if (!section)
    return false;
  SettingsFile::Change change{section, key ? key : "", std::nullopt};
  if (value)
    change.value = value;
  return write(&Store::settings, {change}, worth);
}

int cfgman_WriteConfigSetting(const char* section, const char* key, const char* value) {
  return writeSetting(section, key, value, SettingsFile::Worth::Set) ? 1 : 0;
}

bool sp_RememberSetting(const char* section, const char* key, const char* value) {
  return writeSetting(section, key, value, SettingsFile::Worth::Remembered);
}
