#pragma once

#include "Properties/BaseObjPropertiesDialog.h"
#include "Properties/ui_EditObjectPropertiesDialog.h"

/// The properties of an object, nothing else.
class EditObjectPropertiesDialog : public BaseObjPropertiesDialog {
  Q_OBJECT

public:
  EditObjectPropertiesDialog();

  QTreeWidget* itemsView() override { return form.itemsListView; }
  void initialiseDialog() override;

private slots:
  void addPropertyButton_clicked();

private:
  Ui::EditObjectPropertiesDialog form;
};
