#include "SettingsFile.h"

#include "HostSupport/OptionValue.h"

#include "FileAccess.h"
#include "SettingsFolder.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

namespace {

// No settings are so long; what is has been damaged.
constexpr std::size_t sizeLimit = 64 * 1024 * 1024;

// How long a change of each worth waits for the lock, and how long after it has waited in vain.
// Then no change waits so long again for a while: a dialog that stores several would wait for each.
constexpr struct {
  int first; // ms
  int again; // ms
} lockWaits[] = {{100, 0}, {10'000, 100}};
constexpr std::chrono::seconds busyTime{30};

// Clocks of file systems tick this slowly at worst. A file that was read sooner after its change
// may have changed again within the same tick, under the number of a file that is gone.
constexpr std::int64_t clockTick = 100'000'000; // ns

std::int64_t now() {
  using namespace std::chrono;
  return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

QString qtText(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// The text as it comes back from the file, which holds UTF-8 only.
std::string storedText(const std::string& text) {
  return qtText(text).toStdString();
}

/// Why a file cannot be written, behind the words that it cannot.
std::string reasonOf(int error) {
  if (error == EWOULDBLOCK) // only a lock is told so
    return ": another program is using it";
  return error ? std::string(": ") + std::strerror(error) : std::string();
}

/// Numbers and flags are what a user may have written by hand; null is no value.
std::optional<std::string> readText(const QJsonValue& value) {
  if (value.isString())
    return value.toString().toStdString();
  if (value.isBool())
    return OptionValue(value.toBool()).toText().c_str();
  if (value.isDouble())
    return OptionValue(value.toDouble()).toText().c_str();
  return std::nullopt;
}

template <class Section> bool parseSection(const QJsonObject& object, Section* section) {
  for (auto entry = object.begin(); entry != object.end(); ++entry) {
    const std::optional<std::string> text = readText(*entry);
    if (text)
      section->emplace(entry.key().toStdString(), *text);
    else if (!entry->isNull())
      return false;
  }
  return true;
}

template <class Contents> void apply(const SettingsFile::Change& change, Contents* contents) {
  auto& section = (*contents)[change.section];
  if (change.value)
    section[change.key] = *change.value;
  else
    section.erase(change.key);
  if (section.empty())
    contents->erase(change.section);
}

template <class Section> QJsonObject objectOf(const Section& section) {
  QJsonObject object;
  for (const auto& [key, value] : section)
    object.insert(qtText(key), qtText(value));
  return object;
}

} // namespace

bool SettingsFile::parse(const std::string& bytes, Contents* contents) const {
  // A NUL would pass within a text, and cut it.
  if (bytes.find('\0') != std::string::npos)
    return false;
  const QJsonDocument document = QJsonDocument::fromJson(
      QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size())));
  if (!document.isObject())
    return false;
  const QJsonObject root = document.object();
  if (!m_hasSections)
    return parseSection(root, &(*contents)[""]);
  for (auto entry = root.begin(); entry != root.end(); ++entry)
    if (!entry->isObject() ||
        !parseSection(entry->toObject(), &(*contents)[entry.key().toStdString()]))
      return false;
  return true;
}

std::string SettingsFile::serialise(const Contents& contents) const {
  QJsonObject root;
  for (const auto& [name, section] : contents) {
    if (m_hasSections)
      root.insert(qtText(name), objectOf(section));
    else
      root = objectOf(section);
  }
  return QJsonDocument(root).toJson().toStdString();
}

/// Where a link leads, although nothing may stand there yet. The link itself where there is no
/// folder for it either, as that of a disk that is not there, or where links go round in a circle.
static std::filesystem::path behindLinks(const std::filesystem::path& link) {
  constexpr int mostLinks = 40;
  std::error_code error;
  std::filesystem::path place = link;
  for (int i = 0; std::filesystem::is_symlink(place, error); ++i) {
    place = place.parent_path() / std::filesystem::read_symlink(place, error);
    if (error || i == mostLinks)
      return link;
  }
  return std::filesystem::is_directory(place.parent_path(), error) ? place : link;
}

/// Finds the file. A link leads to where the file, its lock and its successor stand.
void SettingsFile::locate() {
  std::string linkPath = std::string(settingsFolder()) + "/" + m_name;
  if (linkPath != m_linkPath) {
    m_linkPath = std::move(linkPath);
    m_isCurrent = false;
    m_lastReadMessage.clear();
    m_lastWriteMessage.clear();
  }
  m_path = m_linkPath;
  std::error_code error;
  const std::filesystem::path link = pathOf(m_linkPath);
  if (std::filesystem::is_symlink(link, error))
    m_path = textOf(behindLinks(link));
}

SettingsFile::State SettingsFile::load() {
  locate();
  const std::int64_t time = now();
  const FileStamp stamp = platformFileStamp(m_path.c_str());
  if (m_isCurrent && stamp == m_stamp)
    return State::Known;
  m_isCurrent = false;
  m_contents.clear();
  std::string bytes;
  switch (readWholeFile(m_path, sizeLimit, &bytes)) {
  case ReadStatus::NotPlain:
  case ReadStatus::Unreadable:
    report(&m_lastReadMessage, m_path + " cannot be read. Defaults are used.");
    return State::Unreadable;
  case ReadStatus::TooLarge:
    return State::Damaged;
  case ReadStatus::Read:
    if (!parse(bytes, &m_contents)) {
      m_contents.clear();
      return State::Damaged;
    }
    break;
  case ReadStatus::Missing:
    break;
  }
  m_lastReadMessage.clear();
  m_stamp = stamp;
  m_isCurrent = !stamp.exists || time - stamp.modified > clockTick;
  return State::Known;
}

/// As `load`, where the lock is held: nobody else is setting a damaged file aside.
SettingsFile::State SettingsFile::loadLocked() {
  const State state = load();
  return state == State::Damaged && setAside() ? load() : state;
}

bool SettingsFile::setAside() {
  const std::string base =
      m_path + ".damaged-" +
      QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss")).toStdString();
  std::string aside = base;
  std::error_code error;
  for (int n = 2; std::filesystem::exists(std::filesystem::symlink_status(pathOf(aside), error));
       ++n)
    aside = base + "-" + std::to_string(n);
  const bool moved = renameFile(m_path, aside);
  report(&m_lastReadMessage,
         m_path + " is damaged" +
             (moved ? " and was set aside as " + aside : std::string(" and cannot be set aside")) +
             ". Defaults are used.");
  return moved;
}

bool SettingsFile::acquire(PlatformLock* lock, Worth worth) {
  using Clock = std::chrono::steady_clock;
  const auto index = static_cast<std::size_t>(worth);
  const auto& waits = lockWaits[index];
  const int wait = Clock::now() < m_busyUntil[index] ? waits.again : waits.first;
  const bool acquired = fileOperationMayRun() && lock->acquire((m_path + ".lock").c_str(), wait);
  // Whoever has waited long has waited short as well.
  for (std::size_t i = 0; i <= index && errno == EWOULDBLOCK && !acquired; ++i)
    m_busyUntil[i] = Clock::now() + busyTime;
  if (acquired)
    std::fill(std::begin(m_busyUntil), std::end(m_busyUntil), Clock::time_point());
  return acquired;
}

const std::string* SettingsFile::find(const std::string& section, const std::string& key) {
  if (load() == State::Damaged) {
    PlatformLock lock;
    if (acquire(&lock, Worth::Remembered))
      loadLocked();
    else
      report(&m_lastReadMessage, m_path + " is damaged. Defaults are used.");
  }
  return findLoaded(storedText(section), storedText(key));
}

const std::string* SettingsFile::findLoaded(const std::string& section,
                                            const std::string& key) const {
  const auto foundSection = m_contents.find(section);
  if (foundSection == m_contents.end())
    return nullptr;
  const auto found = foundSection->second.find(key);
  return found != foundSection->second.end() ? &found->second : nullptr;
}

bool SettingsFile::write(const std::vector<Change>& given, Worth worth) {
  std::size_t size = 0;
  std::vector<Change> changes;
  for (const Change& change : given) {
    size += change.section.size() + change.key.size() + (change.value ? change.value->size() : 0);
    if (size > sizeLimit)
      return false;
    changes.push_back({storedText(change.section), storedText(change.key), std::nullopt});
    if (change.value)
      changes.back().value = storedText(*change.value);
  }
  if (load() == State::Known && stand(changes))
    return true;
  errno = 0;
  if (storeLocked(changes, worth)) {
    m_lastWriteMessage.clear();
    return true;
  }
  report(&m_lastWriteMessage, m_path + " cannot be written" + reasonOf(errno) + ".");
  return false;
}

bool SettingsFile::stand(const std::vector<Change>& changes) const {
  return std::all_of(changes.begin(), changes.end(), [this](const Change& change) {
    const std::string* present = findLoaded(change.section, change.key);
    return present ? change.value == *present : !change.value;
  });
}

bool SettingsFile::storeLocked(const std::vector<Change>& changes, Worth worth) {
  PlatformLock lock;
  if (!makeFolders(textOf(pathOf(m_path).parent_path())) || !acquire(&lock, worth) ||
      loadLocked() != State::Known)
    return false;
  if (stand(changes))
    return true;
  Contents contents = m_contents;
  for (const Change& change : changes)
    apply(change, &contents);
  const std::string bytes = serialise(contents);
  if (bytes.size() > sizeLimit) {
    errno = EFBIG;
    return false;
  }
  m_isCurrent = false;
  return replaceFile(m_path, bytes);
}

void SettingsFile::report(std::string* last, std::string message) {
  if (message == *last)
    return;
  *last = message;
  m_messages.push_back(std::move(message));
}
