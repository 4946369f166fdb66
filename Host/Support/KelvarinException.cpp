#include "HostSupport/KelvarinException.h"

#include <cstdio>
#include <cstring>

KelvarinException::KelvarinException(const char* message, std::uint32_t category) noexcept
    : m_category(category) {
  const std::size_t length = message ? strnlen(message, sizeof m_message - 1) : 0;
  if (length > 0)
    std::memcpy(m_message, message, length);
  m_message[length] = '\0';
}

namespace {

/// Formats before the base class copies, hence a value of its own.
struct UnresolvedText {
  char text[1000];
  explicit UnresolvedText(const char* entryName) noexcept {
    std::snprintf(text, sizeof text, "*** FATAL ERROR *** Unresolved dynamic function '%s' called",
                  entryName ? entryName : "");
  }
};

} // namespace

DynFuncException::DynFuncException(const char* entryName) noexcept
    : KelvarinException(UnresolvedText(entryName).text, dynFuncCategory) {}
