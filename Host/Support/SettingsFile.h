#pragma once

#include "Platform.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A JSON file of texts under a section and a key, or under a key alone (all in the section ""),
/// that several processes share. Not thread-safe.
class SettingsFile {
public:
  SettingsFile(const char* name, bool hasSections) : m_name(name), m_hasSections(hasSections) {}

  struct Change {
    std::string section;
    std::string key;
    std::optional<std::string> value; ///< none: the key goes
  };

  /// The value that the file holds now; null if there is none.
  const std::string* find(const std::string& section, const std::string& key);
  /// How long a change may wait for another program that keeps the file busy: what is only
  /// remembered, a window's place say, much less than what the user has set.
  enum class Worth { Remembered, Set };
  /// Makes all the changes at once, in their order, beside what others have stored meanwhile. False
  /// if they could not be stored; nothing has changed then.
  bool write(const std::vector<Change>& changes, Worth worth = Worth::Set);

  /// What the user is to be told, for when no lock is held.
  std::vector<std::string> takeMessages() { return std::exchange(m_messages, {}); }

private:
  using Section = std::map<std::string, std::string, std::less<>>;
  using Contents = std::map<std::string, Section, std::less<>>;
  enum class State { Known, Damaged, Unreadable };
  void locate();
  State load();
  State loadLocked();
  bool setAside();
  bool acquire(PlatformLock* lock, Worth worth);
  const std::string* findLoaded(const std::string& section, const std::string& key) const;
  bool stand(const std::vector<Change>& changes) const;
  bool storeLocked(const std::vector<Change>& changes, Worth worth);
  bool parse(const std::string& bytes, Contents* contents) const;
  std::string serialise(const Contents& contents) const;
  void report(std::string* last, std::string message);

  std::string m_name;
  bool m_hasSections;
  std::string m_path;     ///< of the file itself, links resolved
  std::string m_linkPath; ///< as it was looked for
  Contents m_contents;
  FileStamp m_stamp;
  bool m_isCurrent = false; ///< the contents are those of the file with this stamp
  /// Until when the file counts as busy, after changes of each worth have waited in vain.
  std::chrono::steady_clock::time_point m_busyUntil[2];
  std::string m_lastReadMessage;
  std::string m_lastWriteMessage;
  std::vector<std::string> m_messages;
};
