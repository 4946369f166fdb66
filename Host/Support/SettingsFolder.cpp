#include "SettingsFolder.h"

#include "Locked.h"

#include <QStandardPaths>

namespace {

struct Folder {
  std::mutex mutex;
  YString path;
};

} // namespace

YString settingsFolder() {
  const Locked<Folder> folder;
  if (folder->path.isEmpty()) {
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    folder->path = YString(usual.toStdString()).concat("/Kelvarin");
  }
  return folder->path;
}

void setSettingsFolder(const YString& path) {
  const Locked<Folder> folder;
  folder->path = path;
}
