#pragma once

#include "Platform.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

// Access to files for this library. Each operation passes `fileOperationMayRun`, so that tests can
// let any one of them fail.

/// False, with `errno` set, where this operation is to fail.
bool fileOperationMayRun();

std::filesystem::path pathOf(std::string_view utf8);
std::string textOf(const std::filesystem::path& path);

std::FILE* openFile(const char* path, const char* mode);
int unlinkFile(const char* path);

enum class ReadStatus { Read, Missing, NotPlain, Unreadable, TooLarge };
/// Opens a plain file of at most `limit` bytes, and nothing else: a pipe or a device may never come
/// to its end. A link that points nowhere is unreadable, with `errno` set, not missing.
ReadStatus openPlainFile(const std::string& path, std::uint64_t limit, std::FILE** file);
/// The whole of such a file.
ReadStatus readWholeFile(const std::string& path, std::uint64_t limit, std::string* bytes);

/// A new file for writing. What bears the name is removed, never written through: it may be a pipe,
/// or a link to a file that is none of ours.
std::FILE* createFile(const char* path, Readers readers);

/// Puts `bytes` in the place of the file at once: a reader sees all of the old or all of the new,
/// and a failure, told by `errno`, leaves the old. The caller holds the file's lock. A file that is
/// write-protected is not replaced.
bool replaceFile(const std::string& path, std::string_view bytes);

bool renameFile(const std::string& from, const std::string& to);
bool makeFolders(const std::string& path);

/// A new empty file in `folder`; its path, or empty.
std::string makeUniqueFile(const std::string& folder);
