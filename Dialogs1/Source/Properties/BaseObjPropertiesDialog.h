#pragma once

#include "Frame/KelvarinDialog.h"
#include "HostSupport/Containers.h"

#include <optional>

class ListViewProperty;
class QTreeWidget;
class QTreeWidgetItem;

/// Base of the dialogs that show the named properties of an object in a list, each row with an
/// editor of its own. The result has a text per row, in the order of the arguments.
///
/// A dialog's form has the tree; `itemsView` gives it. Controls of its own read and write rows
/// through `getProperty` and `setProperty`; what is to follow an edit in the list overrides
/// `objPropsListViewDoubleClicked`.
class BaseObjPropertiesDialog : public KelvarinDialog {
public:
  explicit BaseObjPropertiesDialog(const char* objectName);

  virtual QTreeWidget* itemsView() = 0;
  /// Opens the editor that fits the row; the row takes what the user settled.
  virtual void editItem(QTreeWidgetItem* item);
  /// A double click, or Return, Enter or F2 on a row.
  virtual void objPropsListViewDoubleClicked(QTreeWidgetItem* item, int column);

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override; ///< loads the list
  void readDialog(UserDataType type, bool accepted) override;

protected:
  ListViewProperty* findProperty(const QString& name); ///< the first of that name; null for none
  /// A property's value with real line breaks; nothing where there is no such row.
  std::optional<QString> getProperty(const QString& name);
  void setProperty(const QString& name, const QString& value); ///< nothing happens without a row
  /// Has the user make a property. Its row's result stands behind those of the arguments and begins
  /// with its name.
  void addProperty();

  int rowCount = 0;
  /// Argument 4 was passed: each result ends with its row's extra text. A dialog to which that
  /// argument means something else clears this once the list is loaded.
  bool hasExtras = false;
  QString namePrefix; ///< where it is not empty, each result begins with its row's name

private:
  YString resultText(const ListViewProperty& row) const;
  QStringList fontStyles() const;
};
