#pragma once

#include "HostSupport/Export.h"

#include <cstdint>

/// A program that the host runs, with all that this starts: they end together, and none of them
/// outlives the object. One at a time. What is typed at the terminal, Ctrl+C above all, does not
/// reach them by itself.
class HOSTSUPPORT_EXPORT ProcessGroup {
public:
  ProcessGroup() = default;
  ~ProcessGroup();
  ProcessGroup(const ProcessGroup&) = delete;
  ProcessGroup& operator=(const ProcessGroup&) = delete;

  /// In the new process, before its program begins: where the platform has that moment, nothing
  /// that the program starts can escape.
  static void enter();
  /// The process that has just been started, by its id.
  void adopt(std::int64_t process);
  /// Ends the programs of the group there is, if there is one, at once. From any thread, and from a
  /// signal handler.
  static void endPresent();
  /// Whether somebody has called `endPresent` for this one.
  bool wasEnded() const;

private:
  std::intptr_t m_handle = 0;
};
