#pragma once

#include "Application/FolderIcons.h"
#include "Core/Application/Subdirectories.h"

#include <QFile>
#include <QTreeWidgetItem>

/// A directory in a tree of the file system. It learns which directories it has when it is opened.
class Directory : public QTreeWidgetItem {
public:
  /// `root` is a path as `QDir::drives` has it; `icons` last as long as the tree is used.
  Directory(const FolderIcons& icons, const QString& root);
  Directory(const FolderIcons& icons, Directory* parentNode, const Subdirectory& directory);

  /// Shows or hides the directories in it.
  void setOpen(bool open);
  QString name() const { return file.fileName(); }
  /// From the root on, joined and ended by "/".
  QString fullPath() const;
  /// The directory of that name in this one, opened before; null where there is none.
  Directory* find(const QString& wanted) const;

private:
  enum Kind { Folder = UserType, Link }; // the item's type

  Directory(const FolderIcons& icons, Directory* parentNode, const QString& fileName, Kind kind);
  void populate();

  const FolderIcons& folderIcons;
  QFile file; ///< never opened: it stands for the name
  Directory* parentDirectory;
  bool readable = true;
  bool populated = false;
};

/// How names of files are compared on this system.
Qt::CaseSensitivity fileNameCase();
