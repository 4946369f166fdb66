#pragma once

#include <QIcon>

#include <array>

enum FolderIcon { ClosedFolder, OpenFolder, LinkedFolder };

/// The icons of directories, 16 by 16 at 96 dpi. Their pictures are made once for all.
class FolderIcons {
public:
  FolderIcons();

  const QIcon& operator[](FolderIcon which) const { return icons[which]; }
  QSize size() const { return iconSize; }

private:
  std::array<QIcon, 3> icons;
  QSize iconSize;
};
