#include "Subdirectories.h"

#include "HostSupport/Files.h"

#include <QDir>

TreePath cutTreePath(const YString& path) {
  YString plain = sp_ConvertLocalToUnix(path);
  plain.stripTrailing("/");
  PathName parts;
  sp_SplitPath(plain, &parts);
  YString below = parts.directory.concat(parts.name).concat(parts.extension);
  below.stripLeading("/");
  return {parts.drive.concat("/"), below};
}

std::vector<Subdirectory> subdirectoriesOf(const QString& path, bool* readable) {
  QDir directory(path);
  // What kind an entry is comes with its name; only links have to be looked at one by one. Files
  // are dropped before anything is sorted.
  directory.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
  *readable = directory.isReadable();
  std::vector<Subdirectory> found;
  if (!*readable)
    return found;
  const QFileInfoList entries = directory.entryInfoList();
  found.reserve(static_cast<std::size_t>(entries.size()));
  for (const QFileInfo& entry : entries)
    found.push_back({entry.fileName(), entry.isSymLink()});
  return found;
}
