#include "Application/Directory.h"

#include "HostSupport/Files.h"

#include <QCoreApplication>
#include <QDir>

Qt::CaseSensitivity fileNameCase() {
  return sp_CaseSensitiveFiles() ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

Directory::Directory(const FolderIcons& icons, const QString& root)
    : Directory(icons, nullptr, root, Folder) {}

Directory::Directory(const FolderIcons& icons, Directory* parentNode, const Subdirectory& directory)
    : Directory(icons, parentNode, directory.name, directory.isLink ? Link : Folder) {}

Directory::Directory(const FolderIcons& icons, Directory* parentNode, const QString& fileName,
                     Kind kind)
    : QTreeWidgetItem(kind), folderIcons(icons), file(fileName), parentDirectory(parentNode) {
  setText(0, QDir::toNativeSeparators(fileName));
  setIcon(0, folderIcons[kind == Link ? LinkedFolder : ClosedFolder]);
  // Nobody knows whether there is something in it before it has been read.
  setChildIndicatorPolicy(ShowIndicator);
}

void Directory::setOpen(bool open) {
  setIcon(0, folderIcons[open ? OpenFolder : type() == Link ? LinkedFolder : ClosedFolder]);
  if (open && !populated)
    populate();
  setExpanded(open);
}

void Directory::populate() {
  populated = true;
  QList<QTreeWidgetItem*> nodes;
  for (const Subdirectory& directory : subdirectoriesOf(fullPath(), &readable))
    nodes.append(new Directory(folderIcons, this, directory));
  addChildren(nodes);
  setChildIndicatorPolicy(DontShowIndicatorWhenChildless);
  if (readable)
    return;
  setToolTip(0, QCoreApplication::translate("ChooseDir", "This directory cannot be read."));
  setData(0, Qt::AccessibleDescriptionRole, toolTip(0)); // as Qt does for widgets only
}

QString Directory::fullPath() const {
  return parentDirectory ? parentDirectory->fullPath() + name() + QLatin1Char('/') : name();
}

Directory* Directory::find(const QString& wanted) const {
  const Qt::CaseSensitivity cases = fileNameCase();
  Directory* found = nullptr;
  for (int i = 0; i < childCount(); ++i) {
    auto* const node = static_cast<Directory*>(child(i));
    // Where there are names that differ in case only, the one that is meant comes first.
    if (node->name() == wanted)
      return node;
    if (!found && node->name().compare(wanted, cases) == 0)
      found = node;
  }
  return found;
}
