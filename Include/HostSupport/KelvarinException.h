#pragma once

#include "HostSupport/Export.h"

#include <cstdint>

/// The exception of faults that the module cannot answer for itself. It leaves the handler, and the
/// host deals with it.
class HOSTSUPPORT_EXPORT KelvarinException {
public:
  static constexpr std::uint32_t plainCategory = 8;
  static constexpr std::uint32_t dynFuncCategory = 9;

  /// `message` is UTF-8 and is cut after 999 bytes; null counts as empty.
  explicit KelvarinException(const char* message, std::uint32_t category = plainCategory) noexcept;

  std::uint32_t category() const noexcept { return m_category; }
  const char* message() const noexcept { return m_message; }

private:
  std::uint32_t m_category;
  char m_message[1000];
};

/// Raised by the first call of a cross-module entry that no module provides.
class HOSTSUPPORT_EXPORT DynFuncException : public KelvarinException {
public:
  explicit DynFuncException(const char* entryName) noexcept;
};
