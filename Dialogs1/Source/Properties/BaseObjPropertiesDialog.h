#pragma once

#include "Core/Properties/PropertyList.h"
#include "Frame/KelvarinDialog.h"

class QTreeWidget;
class QTreeWidgetItem;

/// Base of the dialogs that show the named properties of an object in a list, each row with an
/// editor of its own. The result has a text per row, in the order of the arguments.
///
/// A dialog's form has the tree; `itemsView` gives it. Controls of its own read and write rows
/// through `getProperty` and `setProperty`; what is to follow an edit in the list overrides
/// `objPropsListViewDoubleClicked`.
class BaseObjPropertiesDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit BaseObjPropertiesDialog(const char* objectName);

  virtual QTreeWidget* itemsView() = 0;
  /// Opens the editor that fits the row; the row takes what the user settled.
  virtual void editItem(QTreeWidgetItem* item);

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override; ///< loads the list
  void readDialog(UserDataType type, bool accepted) override;

public slots:
  /// A double click, or Return, Enter or F2 on a row.
  virtual void objPropsListViewDoubleClicked(QTreeWidgetItem* item, int column);

protected:
  /// A property's value with real line breaks; nothing where there is no such row.
  std::optional<QString> getProperty(const QString& name) const;
  void setProperty(const QString& name, const QString& value); ///< nothing happens without a row
  /// Has the user make a property. Its row's result stands behind those of the arguments and begins
  /// with its name.
  void addProperty();

  /// What the tree shows, row by row. Its results have extra texts where argument 4 was passed; a
  /// dialog to which that means something else clears this once the list is loaded.
  PropertyList properties;

private:
  void showChange(int row);
  QStringList fontStyles() const;
};
