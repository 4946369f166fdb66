#pragma once

#include "HostSupport/YString.h"

#include <QString>

#include <vector>

/// A path as a tree of directories is walked: its root, "/" or "C:/", and what is below, without
/// separators at either end.
struct TreePath {
  YString root;
  YString below;
};

/// Cuts a path, with separators of either kind. One without a drive is below "/", whether it begins
/// there or not. Nothing is looked up.
TreePath cutTreePath(const YString& path);

/// A directory in another.
struct Subdirectory {
  QString name;
  bool isLink;
};

/// The directories in the one at `path`, by name, hidden ones and links to directories among them.
/// A directory whose name is no text in the system's encoding is left out: a text could not name
/// it. `*readable` is false where the directory cannot be read, which gives none.
std::vector<Subdirectory> subdirectoriesOf(const QString& path, bool* readable);
