#include "HostSupport/Files.h"
#include "HostSupport/System.h"

#include "AsciiText.h"
#include "FileAccess.h"
#include "Locked.h"
#include "Platform.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Libraries {
  std::mutex mutex;
  std::map<std::string, void*, std::less<>> loaded; // a reference to each
};

// No lock is held while a library comes or goes, since its initialisers may call all of this.

/// Keeps a reference to a library until `sp_UnloadLibrary`; false where there is one already.
bool keepLibrary(const char* library, void* handle) {
  const Locked<Libraries> all;
  return all->loaded.try_emplace(library, handle).second;
}

void* takeLibrary(const char* library) {
  const Locked<Libraries> all;
  const auto found = all->loaded.find(library ? library : "");
  if (found == all->loaded.end())
    return nullptr;
  void* const handle = found->second;
  all->loaded.erase(found);
  return handle;
}

void* findLibraryFunction(const char* library, const char* function) {
  // The reference is this call's own, so that no other thread can take the library away from it.
  void* const handle = platformLoadLibrary(library);
  if (!handle)
    return nullptr;
  void* const entry = platformLibraryFunction(handle, function);
  if (!entry || !keepLibrary(library, handle))
    platformUnloadLibrary(handle);
  return entry;
}

/// Whether a name is of a pattern's form, in which "*" stands for any text and "?" for a character.
bool matches(std::string_view pattern, std::string_view name, bool caseCounts) {
  std::size_t star = std::string_view::npos;
  std::size_t next = 0;
  std::size_t starred = 0; // what the last star stands for ends here
  for (std::size_t i = 0; i < name.size();) {
    const char wanted = next < pattern.size() ? pattern[next] : '\0';
    if (wanted == '*') {
      star = next++;
      starred = i;
    } else if (next < pattern.size() &&
               (wanted == '?' || wanted == name[i] ||
                (!caseCounts && asciiLower(wanted) == asciiLower(name[i])))) {
      ++next;
      ++i;
    } else if (star != std::string_view::npos) {
      next = star + 1;
      i = ++starred;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', next) == std::string_view::npos;
}

/// Libraries of a name may have "lib" before it.
bool matchesLibrary(std::string_view pattern, std::string_view name, bool caseCounts) {
  constexpr std::string_view prefix = "lib";
  return matches(pattern, name, caseCounts) ||
         (name.substr(0, prefix.size()) == prefix &&
          matches(pattern, name.substr(prefix.size()), caseCounts));
}

/// Names of a folder's libraries in the order of their bytes.
std::vector<std::string> libraryNames(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code isNone;
    const std::string name = textOf(entry->path().filename());
    if (platformIsLibraryName(name) && fs::is_regular_file(entry->path(), isNone))
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The folders that a name stands for: itself, or where hosts have what comes with them.
std::vector<YString> libraryFolders(const YString& folder) {
  if (folder.isEmpty())
    return {};
  if (pathOf(folder.c_str()).is_absolute())
    return {folder};
  const YString program = sp_GetExeDir();
  return {program.concat("/").concat(folder),
          program.concat("/../lib/kelvarin-dialogs/").concat(folder)};
}

} // namespace

void* sp_GetLibraryFunction(const char* library, const char* function, bool, const char* message,
                            bool) {
  const bool isNamed = library && *library && function && *function;
  void* const entry = isNamed ? findLibraryFunction(library, function) : nullptr;
  if (!entry && message && *message)
    sp_ReportMessage(message);
  return entry;
}

bool sp_UnloadLibrary(const char* library) {
  void* const handle = takeLibrary(library);
  return handle && platformUnloadLibrary(handle);
}

int sp_SearchDLLs(YArray<YString>* found, const char* folder, const char* pattern,
                  const YArray<YString>& exclusions) {
  found->clear();
  const bool caseCounts = sp_CaseSensitiveFiles();
  const auto isWanted = [&](const std::string& name) {
    return matchesLibrary(pattern ? pattern : "", name, caseCounts) &&
           std::none_of(exclusions.begin(), exclusions.end(), [&](const YString& excluded) {
             return matches(excluded.c_str(), name, caseCounts);
           });
  };
  for (const YString& place : libraryFolders(folder))
    for (const std::string& name : libraryNames(pathOf(place.c_str())))
      if (isWanted(name))
        found->append(sp_GetFullPath(YString(place.concat("/").concat(name.c_str()))));
  return found->count();
}
