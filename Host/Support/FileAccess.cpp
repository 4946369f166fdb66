#include "FileAccess.h"

#include "HostSupport/System.h"

#include <atomic>
#include <cerrno>
#include <mutex>
#include <random>

namespace fs = std::filesystem;

namespace {

std::atomic<int> operationCount{0};
std::atomic<int> failingOperation{0}; // 0 for none
std::atomic<bool> failsAfterwards{false};

/// Makes an error code the `errno` of the caller; true if there is none.
bool succeeded(const std::error_code& error) {
  if (error)
    errno = error.default_error_condition().value(); // the code itself is the platform's own
  return !error;
}

bool writeAndClose(std::FILE* file, std::string_view bytes) {
  bool written =
      fileOperationMayRun() && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  // What the buffer holds back may still fail to reach the file.
  written = written && fileOperationMayRun() && std::fflush(file) == 0;
  const int reason = errno;
  const bool closed = std::fclose(file) == 0;
  if (!written)
    errno = reason;
  return written && closed;
}

} // namespace

int sp_FailFileOperation(int n, bool andAllAfter) {
  failingOperation = n;
  failsAfterwards = andAllAfter;
  return operationCount.exchange(0);
}

bool fileOperationMayRun() {
  const int number = ++operationCount;
  const int failing = failingOperation.load(std::memory_order_relaxed);
  if (failing <= 0 || number < failing || (number > failing && !failsAfterwards))
    return true;
  errno = ENOSPC;
  return false;
}

fs::path pathOf(std::string_view utf8) {
  return platformPath(utf8);
}

std::string textOf(const fs::path& path) {
  return platformText(path);
}

std::FILE* openFile(const char* path, const char* mode) {
  return fileOperationMayRun() ? platformOpenFile(path, mode) : nullptr;
}

int unlinkFile(const char* path) {
  return fileOperationMayRun() ? platformUnlink(path) : -1;
}

std::FILE* createFile(const char* path, Readers readers) {
  if (unlinkFile(path) != 0 && errno != ENOENT)
    return nullptr;
  return fileOperationMayRun() ? platformCreateFile(path, readers) : nullptr;
}

ReadStatus openPlainFile(const std::string& path, std::uint64_t limit, std::FILE** file) {
  *file = nullptr;
  const fs::path place = pathOf(path);
  std::error_code error;
  if (fs::symlink_status(place, error).type() == fs::file_type::not_found)
    return ReadStatus::Missing;
  const fs::file_status status = fs::status(place, error);
  if (fs::exists(status) && !fs::is_regular_file(status))
    return ReadStatus::NotPlain;
  const std::uint64_t size = fs::file_size(place, error);
  if (!succeeded(error))
    return ReadStatus::Unreadable;
  if (size > limit)
    return ReadStatus::TooLarge;
  *file = fileOperationMayRun() ? platformOpenPlainFile(path.c_str()) : nullptr;
  return *file ? ReadStatus::Read : ReadStatus::Unreadable;
}

ReadStatus readWholeFile(const std::string& path, std::uint64_t limit, std::string* bytes) {
  bytes->clear();
  std::FILE* file = nullptr;
  ReadStatus status = openPlainFile(path, limit, &file);
  if (!file)
    return status;
  char chunk[16384];
  std::size_t count = 0;
  do {
    count = fileOperationMayRun() ? std::fread(chunk, 1, sizeof chunk, file) : 0;
    bytes->append(chunk, count);
    if (bytes->size() > limit)
      status = ReadStatus::TooLarge;
  } while (count == sizeof chunk && status == ReadStatus::Read);
  if (status == ReadStatus::Read && !std::feof(file))
    status = ReadStatus::Unreadable;
  const int reason = errno;
  std::fclose(file);
  errno = reason;
  return status;
}

bool replaceFile(const std::string& path, std::string_view bytes) {
  const fs::path place = pathOf(path);
  std::error_code error;
  const fs::file_status present = fs::status(place, error);
  if (fs::exists(present)) {
    std::FILE* writable = openFile(path.c_str(), "r+b");
    if (!writable)
      return false;
    std::fclose(writable);
  }
  // The one name will do, since the caller holds the lock; so no leftovers pile up.
  const std::string next = path + ".new";
  std::FILE* file = createFile(next.c_str(), Readers::AsUsual);
  if (!file)
    return false;
  if (writeAndClose(file, bytes)) {
    if (fs::exists(present))
      fs::permissions(pathOf(next), present.permissions(), error);
    if (renameFile(next, path))
      return true;
  }
  const int reason = errno;
  unlinkFile(next.c_str());
  errno = reason;
  return false;
}

bool renameFile(const std::string& from, const std::string& to) {
  return fileOperationMayRun() && platformRename(from.c_str(), to.c_str());
}

bool makeFolders(const std::string& path) {
  const fs::path place = pathOf(path);
  std::error_code error;
  if (fs::is_directory(place, error))
    return true;
  if (!fileOperationMayRun())
    return false;
  fs::create_directories(place, error);
  return succeeded(error);
}

std::string makeUniqueFile(const std::string& folder) {
  static std::mutex mutex;
  static std::mt19937_64 random{std::random_device{}()};
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts && fileOperationMayRun(); ++attempt) {
    std::uint64_t number = 0;
    {
      const std::lock_guard<std::mutex> lock(mutex);
      number = random();
    }
    const std::string path = folder + "/kv-" + std::to_string(number) + ".tmp";
    if (std::FILE* file = platformCreateFile(path.c_str(), Readers::Owner)) {
      std::fclose(file);
      return path;
    }
    if (errno != EEXIST)
      break;
  }
  return {};
}
