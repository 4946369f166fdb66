#pragma once

#include "HostSupport/SystemTypes.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

// All that differs between the platforms. Texts are UTF-8.

/// A path of any length for what takes one; empty where the text cannot name a file.
std::filesystem::path platformPath(std::string_view utf8);
std::string platformText(const std::filesystem::path& path);

std::FILE* platformOpenFile(const char* path, const char* mode);
/// Opens what is a plain file at this moment for reading; never waits, as to open a pipe would.
std::FILE* platformOpenPlainFile(const char* path);
enum class Readers { Owner, AsUsual };
/// Opens a file that must not exist yet, for writing.
std::FILE* platformCreateFile(const char* path, Readers readers);
/// Makes a folder that belongs to this user and is closed to others, or closes one that does; false
/// with `errno` set. Where folders of users are closed by themselves, any will do.
bool platformMakePrivateDir(const char* path);
int platformUnlink(const char* path);
/// Puts a file in the place of another, if there is one; false with `errno` set.
bool platformRename(const char* from, const char* to);
/// What an executable file tells of its version, "1.2.3"; empty where it tells none.
std::string platformFileVersion(const std::string& path);
/// Reads up to a line break (LF, CRLF, CR) and past it; NUL bytes are dropped. False where nothing
/// is left.
bool platformReadLine(std::FILE* file, std::string* line);

/// What tells one state of a file from another without reading it.
struct FileStamp {
  bool exists = false;
  std::int64_t size = 0;
  std::int64_t modified = 0; ///< ns since 1970
  std::uint64_t identity = 0;

  friend bool operator==(const FileStamp& a, const FileStamp& b) {
    return a.exists == b.exists && a.size == b.size && a.modified == b.modified &&
           a.identity == b.identity;
  }
};
FileStamp platformFileStamp(const char* path);

/// A lock between processes that the system takes back from one that has died.
class PlatformLock {
public:
  PlatformLock() = default;
  ~PlatformLock();
  PlatformLock(const PlatformLock&) = delete;
  PlatformLock& operator=(const PlatformLock&) = delete;
  /// Waits at most so long; false with `errno` set.
  bool acquire(const char* path, int milliseconds);

private:
  bool tryAcquire(const char* path);
  std::intptr_t m_handle = -1;
};

bool platformIsLibraryName(const std::string& name);
/// One more reference to a library, which is loaded where it is not yet; null where there is none
/// of that name, with or without what the platform's libraries have around it.
void* platformLoadLibrary(const char* name);
void* platformLibraryFunction(void* library, const char* function);
/// Gives a reference back.
bool platformUnloadLibrary(void* library);

OperatingSystem platformOperatingSystem();
bool platformFilesAreCaseSensitive();
/// Whether paths start with a drive, and folders may be told apart by "\\" as well.
bool platformHasDrives();
std::string platformExecutable();

struct ProcessorCounts {
  int packages = 1;
  int cores = 1;
  int threads = 1; ///< those that this process may use
};
ProcessorCounts platformProcessors();
bool platformMemory(SystemMemoryInfo* info);
/// What this process alone holds in memory, in bytes; 0 where it cannot be told.
std::uint64_t platformProcessMemory();

// Of `ProcessGroup`. A group is 0 where there is none.
void platformEnterGroup();
std::intptr_t platformAdoptProcess(std::int64_t process);
void platformEndGroup(std::intptr_t group);
void platformCloseGroup(std::intptr_t group);
