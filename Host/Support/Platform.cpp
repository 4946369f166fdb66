#include "Platform.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <bitset>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#define PSAPI_VERSION 2 // in the system's own library

#include <fcntl.h>
#include <io.h>
#include <psapi.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <dlfcn.h>
#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysinfo.h>
#include <unistd.h>
#endif

namespace {

#ifdef _WIN32
// Before paths that are longer than the system takes otherwise, and of servers.
constexpr std::wstring_view longPrefix = LR"(\\?\)";
constexpr std::wstring_view longServerPrefix = LR"(\\?\UNC\)";

bool startsWith(std::wstring_view text, std::wstring_view start) {
  return text.substr(0, start.size()) == start;
}

std::wstring wide(const char* path) {
  return platformPath(path).native();
}

int nextByte(std::FILE* file) {
  return _getc_nolock(file);
}
void lockStream(std::FILE* file) {
  _lock_file(file);
}
void unlockStream(std::FILE* file) {
  _unlock_file(file);
}
#else
int nextByte(std::FILE* file) {
  return getc_unlocked(file);
}
void lockStream(std::FILE* file) {
  flockfile(file);
}
void unlockStream(std::FILE* file) {
  funlockfile(file);
}
#endif

} // namespace

bool platformReadLine(std::FILE* file, std::string* line) {
  // One lock for the whole line: with one for each byte, a long file takes several times as long.
  lockStream(file);
  char chunk[512];
  std::size_t used = 0;
  int c = nextByte(file);
  const bool found = c != EOF;
  for (; c != EOF && c != '\n' && c != '\r'; c = nextByte(file)) {
    if (c == '\0')
      continue;
    chunk[used++] = static_cast<char>(c);
    if (used == sizeof chunk) {
      line->append(chunk, used);
      used = 0;
    }
  }
  line->append(chunk, used);
  if (c == '\r') {
    c = nextByte(file);
    if (c != '\n' && c != EOF)
      std::ungetc(c, file);
  }
  unlockStream(file);
  return found;
}

PlatformLock::~PlatformLock() {
  if (m_handle == -1)
    return;
#ifdef _WIN32
  CloseHandle(reinterpret_cast<HANDLE>(m_handle));
#else
  ::close(static_cast<int>(m_handle));
#endif
}

bool PlatformLock::acquire(const char* path, int milliseconds) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
  std::chrono::milliseconds pause(1);
  while (!tryAcquire(path)) {
    if (errno != EWOULDBLOCK || Clock::now() >= deadline)
      return false;
    std::this_thread::sleep_for(pause);
    pause = std::min(pause * 2, std::chrono::milliseconds(8));
  }
  return true;
}

#ifdef _WIN32

std::filesystem::path platformPath(std::string_view utf8) {
  try {
    const std::filesystem::path path = std::filesystem::u8path(utf8);
    constexpr std::size_t anybodyTakes = 240; // folders fewer than files, and both less than 260
    if (path.native().size() < anybodyTakes || startsWith(path.native(), longPrefix))
      return path;
    // With the prefix only the native and normal form will do.
    const std::wstring full =
        std::filesystem::absolute(path).lexically_normal().make_preferred().native();
    return startsWith(full, LR"(\\)") ? std::wstring(longServerPrefix) + full.substr(2)
                                      : std::wstring(longPrefix) + full;
  } catch (const std::system_error&) {
    return {}; // not UTF-8
  }
}

std::string platformText(const std::filesystem::path& path) {
  const std::wstring& text = path.native();
  if (startsWith(text, longServerPrefix))
    return "\\\\" + std::filesystem::path(text.substr(longServerPrefix.size())).u8string();
  if (startsWith(text, longPrefix))
    return std::filesystem::path(text.substr(longPrefix.size())).u8string();
  return path.u8string();
}

std::FILE* platformOpenFile(const char* path, const char* mode) {
  return _wfopen(wide(path).c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str());
}

std::FILE* platformOpenPlainFile(const char* path) {
  return platformOpenFile(path, "rb"); // a pipe has no name among the files
}

std::FILE* platformCreateFile(const char* path, Readers) {
  int descriptor = -1;
  _wsopen_s(&descriptor, wide(path).c_str(),
            _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
            _S_IREAD | _S_IWRITE);
  return descriptor == -1 ? nullptr : _fdopen(descriptor, "wb");
}

bool platformMakePrivateDir(const char* path) {
  std::error_code error;
  std::filesystem::create_directory(platformPath(path), error);
  return std::filesystem::is_directory(platformPath(path), error);
}

int platformUnlink(const char* path) {
  return _wunlink(wide(path).c_str());
}

FileStamp platformFileStamp(const char* path) {
  HANDLE file = CreateFileW(wide(path).c_str(), FILE_READ_ATTRIBUTES,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return {};
  BY_HANDLE_FILE_INFORMATION data;
  const bool known = GetFileInformationByHandle(file, &data) != 0;
  CloseHandle(file);
  if (!known)
    return {};
  const auto join = [](DWORD high, DWORD low) {
    return static_cast<std::int64_t>(high) << 32 | static_cast<std::int64_t>(low);
  };
  // From ticks of 100 ns since 1601.
  const auto modified =
      (join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime) -
       116444736000000000) *
      100;
  // Not the time of creation, which a file that takes the place of another inherits.
  const auto identity = join(data.nFileIndexHigh, data.nFileIndexLow);
  return {true, join(data.nFileSizeHigh, data.nFileSizeLow), modified,
          static_cast<std::uint64_t>(identity)};
}

bool platformRename(const char* from, const char* to) {
  // Whoever reads the file at this moment, a virus scanner say, is in the way.
  constexpr DWORD longestPause = 128;
  for (DWORD pause = 1;; pause *= 2) {
    if (MoveFileExW(wide(from).c_str(), wide(to).c_str(), MOVEFILE_REPLACE_EXISTING))
      return true;
    const DWORD error = GetLastError();
    errno = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? ENOENT
            : error == ERROR_DISK_FULL                                     ? ENOSPC
                                                                           : EACCES;
    const bool mayPass = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!mayPass || pause > longestPause)
      return false;
    Sleep(pause);
  }
}

std::string platformFileVersion(const std::string& path) {
  const std::wstring file = wide(path.c_str());
  std::vector<char> record(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  VS_FIXEDFILEINFO* version = nullptr;
  UINT size = 0;
  if (record.empty() ||
      !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(record.size()), record.data()) ||
      !VerQueryValueW(record.data(), L"\\", reinterpret_cast<void**>(&version), &size) || !version)
    return {};
  return std::to_string(HIWORD(version->dwFileVersionMS)) + '.' +
         std::to_string(LOWORD(version->dwFileVersionMS)) + '.' +
         std::to_string(HIWORD(version->dwFileVersionLS));
}

bool PlatformLock::tryAcquire(const char* path) {
  HANDLE handle = CreateFileW(wide(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    errno = GetLastError() == ERROR_SHARING_VIOLATION ? EWOULDBLOCK : EACCES;
    return false;
  }
  m_handle = reinterpret_cast<std::intptr_t>(handle);
  return true;
}

bool platformIsLibraryName(const std::string& name) {
  return QString::fromStdString(name).endsWith(QLatin1String(".dll"), Qt::CaseInsensitive);
}

void* platformLoadLibrary(const char* name) {
  // No box where a disk or another library is missing; what stands beside the library is found.
  DWORD previous = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &previous);
  const std::filesystem::path path = platformPath(name).make_preferred();
  const DWORD search = path.is_absolute() ? LOAD_WITH_ALTERED_SEARCH_PATH : 0;
  HMODULE library = LoadLibraryExW(path.c_str(), nullptr, search);
  SetThreadErrorMode(previous, nullptr);
  return library;
}

void* platformLibraryFunction(void* library, const char* function) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), function));
}

bool platformUnloadLibrary(void* library) {
  return FreeLibrary(static_cast<HMODULE>(library)) != 0;
}

OperatingSystem platformOperatingSystem() {
  return OperatingSystem::Windows;
}
bool platformFilesAreCaseSensitive() {
  return false;
}
bool platformHasDrives() {
  return true;
}

std::string platformExecutable() {
  wchar_t path[32768];
  const DWORD length = GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)));
  return platformText(std::wstring(path, length));
}

static int usableThreads() {
  DWORD_PTR usable = 0; // 0 as well where they are of several groups
  DWORD_PTR present = 0;
  if (GetProcessAffinityMask(GetCurrentProcess(), &usable, &present) && usable != 0)
    return static_cast<int>(std::bitset<64>(usable).count());
  return std::max(QThread::idealThreadCount(), 1);
}

ProcessorCounts platformProcessors() {
  const int threads = usableThreads();
  DWORD bytes = 0;
  GetLogicalProcessorInformation(nullptr, &bytes);
  std::vector<SYSTEM_LOGICAL_PROCESSOR_INFORMATION> records(
      bytes / sizeof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION));
  if (records.empty() || !GetLogicalProcessorInformation(records.data(), &bytes))
    return {1, threads, threads};
  const auto count = [&](LOGICAL_PROCESSOR_RELATIONSHIP kind) {
    return std::max(1, static_cast<int>(std::count_if(
                           records.begin(), records.end(),
                           [kind](const auto& record) { return record.Relationship == kind; })));
  };
  return {count(RelationProcessorPackage), std::min(count(RelationProcessorCore), threads),
          threads};
}

bool platformMemory(SystemMemoryInfo* info) {
  MEMORYSTATUSEX status;
  status.dwLength = sizeof status;
  if (!GlobalMemoryStatusEx(&status))
    return false;
  info->total = status.ullTotalPhys;
  info->available = status.ullAvailPhys;
  info->swapTotal = status.ullTotalPageFile - std::min(status.ullTotalPageFile, info->total);
  info->swapAvailable = std::min(status.ullAvailPageFile, info->swapTotal);
  return true;
}

std::uint64_t platformProcessMemory() {
  PROCESS_MEMORY_COUNTERS_EX counters = {};
  counters.cb = sizeof counters;
  return GetProcessMemoryInfo(GetCurrentProcess(),
                              reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                              sizeof counters)
             ? counters.PrivateUsage
             : 0;
}

void platformEnterGroup() {}

std::intptr_t platformAdoptProcess(std::int64_t process) {
  HANDLE job = CreateJobObjectW(nullptr, nullptr);
  HANDLE started =
      OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(process));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  const bool isWhole =
      job && started &&
      SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) &&
      AssignProcessToJobObject(job, started);
  if (started)
    CloseHandle(started);
  if (isWhole)
    return reinterpret_cast<std::intptr_t>(job);
  if (job)
    CloseHandle(job);
  return 0;
}

void platformEndGroup(std::intptr_t group) {
  TerminateJobObject(reinterpret_cast<HANDLE>(group), EXIT_FAILURE);
}

void platformCloseGroup(std::intptr_t group) {
  CloseHandle(reinterpret_cast<HANDLE>(group));
}

#else

std::filesystem::path platformPath(std::string_view utf8) {
  return std::filesystem::u8path(utf8);
}

std::string platformText(const std::filesystem::path& path) {
  return path.u8string();
}

std::FILE* platformOpenFile(const char* path, const char* mode) {
  return std::fopen(path, mode);
}

std::FILE* platformOpenPlainFile(const char* path) {
  // Looked at once it is open: what bore the name before may have been another file.
  const int descriptor = ::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descriptor == -1)
    return nullptr;
  struct stat status;
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
    return ::fdopen(descriptor, "rb");
  ::close(descriptor);
  errno = EINVAL;
  return nullptr;
}

std::FILE* platformCreateFile(const char* path, Readers readers) {
  const mode_t mode = readers == Readers::Owner ? 0600 : 0666;
  const int descriptor = ::open(path, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
  return descriptor == -1 ? nullptr : ::fdopen(descriptor, "wb");
}

bool platformMakePrivateDir(const char* path) {
  if (::mkdir(path, S_IRWXU) != 0 && errno != EEXIST)
    return false;
  struct stat own; // a link that somebody else may turn round is not ours, wherever it leads
  struct stat told;
  if (::lstat(path, &own) != 0 || ::stat(path, &told) != 0)
    return false;
  if (!S_ISDIR(told.st_mode) || own.st_uid != ::geteuid() || told.st_uid != ::geteuid()) {
    errno = EPERM;
    return false;
  }
  return (told.st_mode & (S_IRWXG | S_IRWXO)) == 0 || ::chmod(path, S_IRWXU) == 0;
}

int platformUnlink(const char* path) {
  return ::unlink(path);
}

FileStamp platformFileStamp(const char* path) {
  struct stat status;
  if (::stat(path, &status) != 0)
    return {};
  return {true, status.st_size,
          std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec,
          status.st_ino};
}

bool platformRename(const char* from, const char* to) {
  return std::rename(from, to) == 0;
}

std::string platformFileVersion(const std::string& path) {
  // A library's file carries its version behind its name: "libm.so.6.1".
  std::error_code error;
  const std::string name = std::filesystem::canonical(path, error).filename().string();
  const std::size_t suffix = name.find(".so.");
  return suffix != std::string::npos ? name.substr(suffix + 4) : std::string();
}

bool PlatformLock::tryAcquire(const char* path) {
  if (m_handle == -1)
    m_handle = ::open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  return m_handle != -1 && ::flock(static_cast<int>(m_handle), LOCK_EX | LOCK_NB) == 0;
}

bool platformIsLibraryName(const std::string& name) {
  const std::size_t suffix = name.rfind(".so");
  return suffix != std::string::npos &&
         name.find_first_not_of(".0123456789", suffix + 3) == std::string::npos;
}

void* platformLoadLibrary(const char* name) {
  if (void* library = ::dlopen(name, RTLD_LAZY))
    return library;
  const std::string path = name;
  const std::size_t file = path.rfind('/') + 1;
  for (const char* prefix : {"lib", ""})
    if (void* library = ::dlopen(
            (path.substr(0, file) + prefix + path.substr(file) + ".so").c_str(), RTLD_LAZY))
      return library;
  return nullptr;
}

void* platformLibraryFunction(void* library, const char* function) {
  return ::dlsym(library, function);
}

bool platformUnloadLibrary(void* library) {
  return ::dlclose(library) == 0;
}

OperatingSystem platformOperatingSystem() {
  return OperatingSystem::Linux;
}
bool platformFilesAreCaseSensitive() {
  return true;
}
bool platformHasDrives() {
  return false;
}

std::string platformExecutable() {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? QCoreApplication::applicationFilePath().toStdString() : path.string();
}

ProcessorCounts platformProcessors() {
  ProcessorCounts counts;
  cpu_set_t usable;
  counts.threads = sched_getaffinity(0, sizeof usable, &usable) == 0
                       ? std::max(CPU_COUNT(&usable), 1)
                       : std::max(QThread::idealThreadCount(), 1);
  counts.cores = counts.threads;
  std::FILE* file = std::fopen("/proc/cpuinfo", "re");
  if (!file)
    return counts;
  std::set<int> packages;
  std::set<std::pair<int, int>> cores;
  int package = 0;
  std::string line;
  for (; platformReadLine(file, &line); line.clear()) {
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos)
      continue;
    const int number = std::atoi(line.c_str() + colon + 1);
    if (line.rfind("physical id", 0) == 0)
      packages.insert(package = number);
    else if (line.rfind("core id", 0) == 0)
      cores.insert({package, number});
  }
  std::fclose(file);
  if (!packages.empty())
    counts.packages = static_cast<int>(packages.size());
  if (!cores.empty())
    counts.cores = std::min(static_cast<int>(cores.size()), counts.threads);
  return counts;
}

bool platformMemory(SystemMemoryInfo* info) {
  struct sysinfo told;
  if (::sysinfo(&told) != 0)
    return false;
  const std::uint64_t unit = told.mem_unit;
  info->total = told.totalram * unit;
  info->available = told.freeram * unit;
  info->swapTotal = told.totalswap * unit;
  info->swapAvailable = told.freeswap * unit;
  return true;
}

std::uint64_t platformProcessMemory() {
  std::FILE* file = std::fopen("/proc/self/statm", "re");
  if (!file)
    return 0;
  unsigned long long resident = 0;
  unsigned long long shared = 0;
  const bool isRead = std::fscanf(file, "%*u %llu %llu", &resident, &shared) == 2;
  std::fclose(file);
  static const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  return isRead && resident > shared ? (resident - shared) * page : 0;
}

void platformEnterGroup() {
  ::setpgid(0, 0);
}

std::intptr_t platformAdoptProcess(std::int64_t process) {
  // It does so itself; whoever is first.
  ::setpgid(static_cast<pid_t>(process), static_cast<pid_t>(process));
  return static_cast<std::intptr_t>(process);
}

void platformEndGroup(std::intptr_t group) {
  ::kill(-static_cast<pid_t>(group), SIGKILL);
}

void platformCloseGroup(std::intptr_t) {}

#endif
