#include "HostSupport/Files.h"

#include "HostSupport/Options.h"
#include "HostSupport/System.h"

#include "AsciiText.h"
#include "FileAccess.h"
#include "Platform.h"
#include "SettingsFolder.h"

#include <QDir>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <utility>

namespace fs = std::filesystem;

namespace {

std::string stringOf(const YString& text) {
  return std::string(text.c_str(), text.length());
}

YString textOf(const QString& text) {
  return YString(text.toStdString());
}

YString joined(const YString& folder, const char* name) {
  const std::size_t length = folder.length();
  const bool ends = length > 0 && isPathSeparator(folder.c_str()[length - 1]);
  return ends ? folder.concat(name) : folder.concat("/").concat(name);
}

/// Length of a drive at the front of a path, "C:" or "//server/share".
std::size_t driveLength(std::string_view path) {
  if (!platformHasDrives())
    return 0;
  if (path.size() >= 2 && path[1] == ':' && isAsciiLetter(path[0]))
    return 2;
  if (path.size() < 3 || !isPathSeparator(path[0]) || !isPathSeparator(path[1]) ||
      isPathSeparator(path[2]))
    return 0;
  const std::size_t share = path.find_first_of("/\\", 2);
  if (share == std::string_view::npos)
    return path.size();
  return std::min(path.find_first_of("/\\", share + 1), path.size());
}

/// Cuts separators off the end, but for those of a root.
std::string_view withoutTrailingSeparators(std::string_view path) {
  const std::size_t root = driveLength(path) + 1;
  while (path.size() > root && isPathSeparator(path.back()))
    path.remove_suffix(1);
  return path;
}

fs::path folderPath(const YString& path) {
  return pathOf(withoutTrailingSeparators({path.c_str(), path.length()}));
}

YString withSeparators(const YString& path, char from, char to) {
  YString result = path;
  if (from != to && std::strchr(path, from))
    for (char* c = result.detach(); *c; ++c)
      if (*c == from)
        *c = to;
  return result;
}

/// Reads "1", "1.2" or "1.2.3"; false where the text is none of these.
bool readVersion(std::string_view text, FileVersion* version) {
  FileVersion read;
  int* const parts[] = {&read.major, &read.minor, &read.patch};
  const char* next = text.data();
  const char* const end = next + text.size();
  for (int* part : parts) {
    const auto [stop, error] = std::from_chars(next, end, *part);
    if (error != std::errc() || *part < 0)
      return false;
    next = stop;
    if (next == end) {
      *version = read;
      return true;
    }
    if (*next++ != '.')
      return false;
  }
  return false;
}

} // namespace

bool sp_ExistFile(const char* path) {
  std::error_code error;
  const fs::file_status status = fs::status(pathOf(path ? path : ""), error);
  return fs::exists(status) && !fs::is_directory(status);
}

bool sp_ExistDir(YString path) {
  std::error_code error;
  return fs::is_directory(folderPath(path), error);
}

bool sp_MakeDir(const YString& path) {
  if (sp_ExistDir(path))
    return true;
  if (path.isEmpty() || !fileOperationMayRun())
    return false;
  std::error_code error;
  fs::create_directory(folderPath(path), error);
  return sp_ExistDir(path);
}

bool sp_MakeTree(YString path) {
  return !path.isEmpty() && makeFolders(textOf(folderPath(path))) && sp_ExistDir(path);
}

bool sp_MakePrivateDir(const YString& path) {
  const std::string folder = textOf(folderPath(path));
  return !path.isEmpty() && makeFolders(textOf(pathOf(folder).parent_path())) &&
         fileOperationMayRun() && platformMakePrivateDir(folder.c_str());
}

bool sp_DirectoryIsWriteable(const YString& path) {
  if (!sp_ExistDir(path))
    return false;
  const std::string trial = makeUniqueFile(stringOf(path));
  return !trial.empty() && unlink_utf8(trial.c_str()) == 0;
}

YString sp_GetFullPath(const YString& path) {
  if (path.isEmpty())
    return path;
  std::error_code error;
  const fs::path full = fs::absolute(pathOf(path.c_str()), error);
  if (error)
    return path;
  return YString(std::string(withoutTrailingSeparators(textOf(full.lexically_normal()))));
}

void sp_SplitPath(YString path, PathName* parts) {
  const std::string_view text(path.c_str(), path.length());
  const std::size_t drive = driveLength(text);
  const std::size_t lastSeparator = text.find_last_of("/\\");
  const std::size_t name =
      lastSeparator == std::string_view::npos || lastSeparator < drive ? drive : lastSeparator + 1;
  // A point in front is part of the name: ".profile", "..".
  const std::size_t firstOther = text.find_first_not_of('.', name);
  const std::size_t point = text.rfind('.');
  const bool hasExtension =
      point != std::string_view::npos && firstOther != std::string_view::npos && point > firstOther;
  const std::size_t extension = hasExtension ? point : text.size();
  const auto part = [text](std::size_t from, std::size_t to) {
    return YString(text.data() + from, to - from);
  };
  *parts = {part(0, drive), part(drive, name), part(name, extension), part(extension, text.size())};
}

YString sp_GetDirFromPath(const char* path) {
  PathName parts;
  sp_SplitPath(path, &parts);
  const std::string folder = stringOf(YString(parts.drive.concat(parts.directory)));
  return YString(std::string(withoutTrailingSeparators(folder)));
}

YString sp_GetCwd() {
  std::error_code error;
  return YString(textOf(fs::current_path(error)));
}

namespace {

YString platformTempPath() {
  std::error_code error;
  const fs::path path = fs::temp_directory_path(error);
  const std::string text = error ? QDir::tempPath().toStdString() : ::textOf(path);
  return YString(std::string(withoutTrailingSeparators(text)));
}

using GetFolder = YString (*)();

YString knownFolderPath(const YString& folder, GetFolder tempPath) {
  if (sp_CompareNoCase(folder, "AppData") == 0)
    return sp_GetSettingsDir();
  if (sp_CompareNoCase(folder, "Temp") == 0)
    return tempPath();
  static constexpr struct {
    const char* name;
    QStandardPaths::StandardLocation location;
  } folders[] = {{"Documents", QStandardPaths::DocumentsLocation},
                 {"Desktop", QStandardPaths::DesktopLocation},
                 {"Home", QStandardPaths::HomeLocation}};
  for (const auto& known : folders)
    if (sp_CompareNoCase(folder, known.name) == 0)
      return textOf(QStandardPaths::writableLocation(known.location));
  return YString();
}

bool translatePath(const char* path, GetFolder tempPath, YString* out) {
  *out = YString(path);
  const YString given = *out;
  const char* text = given;
  const char* end = *text == '%' ? std::strchr(text + 1, '%') : nullptr;
  if (!end)
    return true;
  const YString word(text + 1, static_cast<std::size_t>(end - text - 1));
  const YString folder =
      sp_CompareNoCase(word, "EXEPATH") == 0 ? sp_GetExeDir() : knownFolderPath(word, tempPath);
  if (folder.isEmpty())
    return false;
  const char* rest = end + 1;
  while (isPathSeparator(*rest))
    ++rest;
  *out = *rest ? joined(folder, rest) : folder;
  return true;
}

/// What an option holds as a path; empty where it is not set, depends on where somebody happens to
/// work, or starts with an unknown prefix.
YString pathOption(const char* key) {
  YString path = sp_GetStringOption(key);
  path.stripLeading(" \t").stripTrailing(" \t");
  // The option of the temporary folder may itself be told from the platform's.
  const bool isPlace =
      translatePath(path, platformTempPath, &path) && pathOf(path.c_str()).is_absolute();
  return isPlace ? sp_GetFullPath(path) : YString();
}

} // namespace

YString sp_GetTempPath() {
  const YString chosen = pathOption("TempDataDir");
  const bool isUsable = sp_MakeTree(chosen) && sp_DirectoryIsWriteable(chosen);
  return isUsable ? chosen : platformTempPath();
}

YString sp_GetTempFile() {
  return YString(makeUniqueFile(stringOf(sp_GetTempPath())));
}

YString sp_GetExeFileName() {
  return YString(platformExecutable());
}

YString sp_GetExeDir() {
  return sp_GetDirFromPath(sp_GetExeFileName());
}

YString sp_GetKnownFolderPath(const YString& folder) {
  return knownFolderPath(folder, sp_GetTempPath);
}

bool sp_GetFileVersion(const YString& path, FileVersion* version) {
  if (path.isEmpty() || path.comparePath(sp_GetExeFileName()) == 0) {
    const YString own = sp_GetSystemValue("version");
    return readVersion(own.c_str(), version);
  }
  return readVersion(platformFileVersion(stringOf(path)), version);
}

bool sp_GetVersionValues(int* major, int* minor, int* patch) {
  FileVersion version;
  const bool isKnown = sp_GetFileVersion(YString(), &version);
  for (const auto& [out, value] :
       {std::pair(major, version.major), {minor, version.minor}, {patch, version.patch}})
    if (out)
      *out = value;
  return isKnown;
}

YString sp_ConvertLocalToUnix(const YString& path) {
  return withSeparators(path, '\\', '/');
}

YString sp_ConvertUnixToLocal(const YString& path) {
  return withSeparators(path, '/', static_cast<char>(fs::path::preferred_separator));
}

bool sp_TranslateSystemPath(const char* path, YString* out) {
  return translatePath(path, sp_GetTempPath, out);
}

bool sp_CaseSensitiveFiles() {
  return sp_GetSystemValue("caseSensitiveFiles") == "1";
}

// Stands here since it asks what counts as one path.
int YString::comparePath(const YString& other) const {
  const bool caseCounts = sp_CaseSensitiveFiles();
  const auto key = [caseCounts](char c) {
    c = c == '\\' ? '/' : c;
    return static_cast<unsigned char>(caseCounts ? c : asciiLower(c));
  };
  const char* a = c_str();
  const char* b = other.c_str();
  while (*a && key(*a) == key(*b)) {
    ++a;
    ++b;
  }
  return key(*a) - key(*b);
}

bool sp_IsSystemSymbolLib(const YString& path) {
  YString folder = pathOption("SymbolsDir");
  if (folder.isEmpty())
    folder = sp_GetExeDir().concat("/../share/kelvarin-dialogs/symbols");
  const auto resolved = [](const YString& place) {
    std::error_code error;
    return textOf(fs::weakly_canonical(folderPath(sp_GetFullPath(place)), error));
  };
  std::string system = resolved(folder);
  while (!system.empty() && isPathSeparator(system.back())) // of a root
    system.pop_back();
  const std::string file = path.isEmpty() ? std::string() : resolved(path);
  return file.size() > system.size() && isPathSeparator(file[system.size()]) &&
         YString(file.substr(0, system.size())).comparePath(YString(system)) == 0;
}

std::FILE* fopen_utf8(const char* path, const char* mode) {
  if (!path || !mode) {
    errno = EINVAL;
    return nullptr;
  }
  return openFile(path, mode);
}

int unlink_utf8(const char* path) {
  if (!path) {
    errno = EINVAL;
    return -1;
  }
  return unlinkFile(path);
}

namespace {

/// "1.2 GB"
std::string sizeText(std::uint64_t bytes) {
  const QString text =
      QLocale::c().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeSIFormat);
  return QString(text).remove(QLatin1String(".0")).toStdString();
}

std::string faultOf(const fs::path& path, ReadStatus status, std::uint64_t limit) {
  std::error_code error;
  switch (status) {
  case ReadStatus::Missing:
    return std::strerror(ENOENT);
  case ReadStatus::NotPlain:
    return fs::is_directory(path, error) ? "it is a folder" : "it is not a plain file";
  case ReadStatus::TooLarge:
    return "it has " + sizeText(std::max(fs::file_size(path, error), limit)) +
           ", and no more than " + sizeText(limit) + " are read";
  case ReadStatus::Unreadable:
    return std::strerror(errno);
  case ReadStatus::Read:
    break;
  }
  return {};
}

/// True where the file was read; else says why not.
bool wasRead(const char* path, ReadStatus status, std::uint64_t limit, YString* fault) {
  if (fault)
    *fault = YString(faultOf(pathOf(path), status, limit));
  return status == ReadStatus::Read;
}

} // namespace

std::FILE* sp_OpenPlainFile(const char* path, YString* fault, std::uint64_t limit) {
  std::FILE* file = nullptr;
  const char* const name = path ? path : "";
  wasRead(name, openPlainFile(name, limit, &file), limit, fault);
  return file;
}

bool sp_ReadPlainFile(const char* path, std::string* bytes, YString* fault, std::uint64_t limit) {
  const char* const name = path ? path : "";
  const bool isRead = wasRead(name, readWholeFile(name, limit, bytes), limit, fault);
  if (!isRead)
    bytes->clear();
  return isRead;
}

std::FILE* sp_CreateFile(const char* path) {
  return createFile(path ? path : "", Readers::Owner);
}

bool sp_ReadNextLine(std::FILE* file, YString* line) {
  std::string text;
  const bool found = file && fileOperationMayRun() && platformReadLine(file, &text);
  *line = YString(text);
  return found;
}

YString sp_GetSettingsDir() {
  return settingsFolder();
}

void sp_SetSettingsDir(const YString& path) {
  setSettingsFolder(sp_GetFullPath(path));
}
