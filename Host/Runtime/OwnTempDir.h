#pragma once

#include <QTemporaryDir>

#include <utility>
#include <vector>

/// A temporary folder of this process alone, for all that it and the programs that it starts put
/// aside under names of their own choice: while the object stands, the environment names it as the
/// temporary folder. It goes with the object. One at a time.
class OwnTempDir {
public:
  OwnTempDir();
  ~OwnTempDir();
  OwnTempDir(const OwnTempDir&) = delete;
  OwnTempDir& operator=(const OwnTempDir&) = delete;

  /// For a process that is about to end without its destructors; from any thread.
  static void removeBeforeExit();

private:
  QTemporaryDir m_folder;
  std::vector<std::pair<const char*, QByteArray>> m_before; ///< null: not set
};
