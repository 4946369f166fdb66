#pragma once

#include "Application/FolderIcons.h"
#include "Application/ui_BaseChooseDirDialog.h"
#include "Frame/KelvarinDialog.h"

class Directory;

/// A directory, chosen in a tree of the file system.
class ChooseDir : public KelvarinDialog {
  Q_OBJECT

public:
  ChooseDir();

  void initialiseDialog() override;
  /// The path in the label; a cancel is one text, too, which is empty.
  void readDialog(UserDataType type, bool accepted) override;

protected:
  void showEvent(QShowEvent* event) override;

private slots:
  void directoryListView_clicked() {} ///< a click alone chooses nothing; the selection does
  void directoryListView_selectionChanged();
  void createDirectoryButton_clicked();
  void directoryListView_itemExpanded(QTreeWidgetItem* item);

private:
  void directoryListView_itemCollapsed(QTreeWidgetItem* item);
  /// Fills the tree anew, opened along `path` as far as there are directories.
  void openTree(const YString& path);
  void openBelow(Directory* root, const YString& path);
  /// A full path as it stands, another as one below the chosen directory.
  QString belowChosen(const QString& name) const;
  void showCurrent();

  Ui::BaseChooseDirDialog form;
  FolderIcons icons;
};
