#pragma once

#include "Properties/BaseObjPropertiesDialog.h"
#include "Properties/ui_EditObjectPropertiesDialog.h"

/// The properties of an object, nothing else.
class EditObjectPropertiesDialog : public BaseObjPropertiesDialog {
public:
  EditObjectPropertiesDialog();

  QTreeWidget* itemsView() override { return form.itemsListView; }
  void initialiseDialog() override;

private:
  void addPropertyButton_clicked();

  Ui::EditObjectPropertiesDialog form;
};
