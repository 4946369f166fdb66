#pragma once

#include <cstdint>

/// Physical memory, in bytes.
struct SystemMemoryInfo {
  std::uint64_t available = 0;     ///< could be had now without paging
  std::uint64_t swapTotal = 0;     ///< room for paging
  std::uint64_t swapAvailable = 0; ///< of that, free
  std::uint64_t total = 0;         ///< dialogs size transforms by it; the fourth field by contract
};

enum class OperatingSystem : std::int32_t { Windows = 0, Linux = 1, Other = 2 };
