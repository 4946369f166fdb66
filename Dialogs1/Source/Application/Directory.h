#pragma once

#include "Core/Application/Subdirectories.h"

#include <QFile>
#include <QTreeWidgetItem>

class ChooseDir;

/// A directory in the tree of `ChooseDir`. It learns which directories it has when it is opened.
class Directory : public QTreeWidgetItem {
public:
  Directory(ChooseDir* chooser, const QString& root); ///< `root`: a path as `QDir::drives` has it
  Directory(ChooseDir* chooser, Directory* parentNode, const Subdirectory& directory);

  /// Shows or hides the directories in it.
  void setOpen(bool open);
  QString name() const { return file.fileName(); }
  /// From the root on, joined and ended by "/".
  QString fullPath() const;
  /// The directory of that name in this one, opened before; null where there is none.
  Directory* find(const QString& wanted) const;

private:
  enum Kind { Folder = UserType, Link }; // the item's type

  Directory(ChooseDir* chooser, Directory* parentNode, const QString& fileName, Kind kind);
  void populate();

  ChooseDir* dialog;
  QFile file; ///< never opened: it stands for the name
  Directory* parentDirectory;
  bool readable = true;
  bool populated = false;
};

/// How names of files are compared on this system.
Qt::CaseSensitivity fileNameCase();
