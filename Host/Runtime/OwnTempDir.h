#pragma once

#include <QLockFile>
#include <QTemporaryDir>

#include <utility>
#include <vector>

/// A temporary folder of this process alone, for all that it and the programs that it starts put
/// aside under names of their own choice: while the object stands, the environment names it as the
/// temporary folder. It goes with the object; what this user's processes that were killed have left
/// goes when the next one starts. Where none can be made, that is reported. One at a time.
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
  QLockFile m_inUse;                                        ///< held as long as the process lives
  std::vector<std::pair<const char*, QByteArray>> m_before; ///< null: not set
};
