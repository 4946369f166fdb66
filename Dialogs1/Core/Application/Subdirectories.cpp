#include "Core/Application/Subdirectories.h"

#include "HostSupport/Files.h"

#include <QDirIterator>

#include <algorithm>

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
  for (QDirIterator entry(directory); entry.hasNext();) {
    entry.next();
    found.push_back({entry.fileName(), entry.fileInfo().isSymLink()});
  }
  std::sort(found.begin(), found.end(), [](const Subdirectory& left, const Subdirectory& right) {
    const int order = left.name.compare(right.name, Qt::CaseInsensitive);
    return order < 0 || (order == 0 && left.name < right.name);
  });
  return found;
}
