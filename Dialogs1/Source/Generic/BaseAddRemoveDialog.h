#pragma once

#include "Core/Generic/AddRemoveLists.h"
#include "Frame/KelvarinDialog.h"

class QGroupBox;
class QListWidget;
class QToolButton;

/// Moves items between a list of available and a list of selected items, and orders the latter. It
/// finds its widgets by name, so that any form with these names will do.
class BaseAddRemoveDialog : public KelvarinDialog {
  Q_OBJECT

public:
  /// Not `plain`: the result begins with the number of items.
  BaseAddRemoveDialog(const char* objectName, bool plain);

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
  void helpClicked() override;

public slots:
  virtual void removeButton_clicked();
  virtual void addButton_clicked();
  virtual void upButton_clicked();
  virtual void downButton_clicked();

private:
  using Slot = void (BaseAddRemoveDialog::*)();

  void onKey(QListWidget* list, int key, Slot slot);
  void transfer(QListWidget* from, const RowBlocks& rows);
  void moveSelected(int step);
  /// Brings a list that shows the items `before` up to date, by changing the rows that differ.
  void showItems(QListWidget* list, const AddRemoveLists::Items& before);
  const AddRemoveLists::Items& itemsOf(const QListWidget* list) const;
  /// The script's own text: an item goes back byte for byte, even one that is no valid text.
  const char* passedItem(int item) const;

  YString helpTopic;
  bool plainResult;
  AddRemoveLists lists;
  Texts selectedItems;
  Texts availableItems;

  QListWidget* selectedItemsListBox = nullptr;
  QListWidget* allItemsListBox = nullptr;
  QToolButton* addButton = nullptr;
  QToolButton* removeButton = nullptr;
  QToolButton* upButton = nullptr;
  QToolButton* downButton = nullptr;
  QGroupBox* selectedItemsGroupBox = nullptr;
  QGroupBox* allItemsGroupBox = nullptr;
};
