#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/YString.h"

#include <cstddef>
#include <cstdint>

class QWidget;

// What a caller of the chooser of symbol files asks for, and what the user chose. The layout is a
// contract.

/// What the chooser takes; any other number is as `SeveralSymbolFiles`.
enum SymbolFileMode : std::int32_t {
  AnySymbolFile = 0,      ///< one, which need not exist
  ExistingSymbolFile = 1, ///< one that exists
  SeveralSymbolFiles = 2, ///< any number that exist
};

struct SymbolFileRequest {
  std::int32_t fileMode = AnySymbolFile;
  YString filter;          ///< the name filter; empty: those of `filters`
  YArray<YString> filters; ///< name filters to choose from
  YString startDir;        ///< where the chooser starts; empty: where it likes
  bool flag = false;       ///< handed to the chooser as it is
  QWidget* parent = nullptr;
};

/// Local paths; none where the user gave up.
struct SymbolFileResult {
  YArray<YString> names;
};

static_assert(sizeof(YArray<YString>) == 24);
static_assert(offsetof(SymbolFileRequest, fileMode) == 0);
static_assert(offsetof(SymbolFileRequest, filter) == 8);
static_assert(offsetof(SymbolFileRequest, filters) == 16);
static_assert(offsetof(SymbolFileRequest, startDir) == 40);
static_assert(offsetof(SymbolFileRequest, flag) == 48);
static_assert(offsetof(SymbolFileRequest, parent) == 56);
static_assert(sizeof(SymbolFileRequest) == 64);
static_assert(offsetof(SymbolFileResult, names) == 0);
static_assert(sizeof(SymbolFileResult) == 24);
