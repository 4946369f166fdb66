#include "Properties/EditObjectPropertiesDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditObjectPropertiesDialog", 2, "SSSSSS",
                                        StringVectorResult,
                                        runDialogFunction<EditObjectPropertiesDialog, UserString>);

namespace {

enum Argument { Settings = 3 };
enum Setting { OffersAdding = 4 };

} // namespace

EditObjectPropertiesDialog::EditObjectPropertiesDialog()
    : BaseObjPropertiesDialog("EditObjectPropertiesDialog") {
  form.setupUi(this);
  connect(form.addPropertyButton, &QPushButton::clicked, this,
          &EditObjectPropertiesDialog::addPropertyButton_clicked);
}

void EditObjectPropertiesDialog::initialiseDialog() {
  BaseObjPropertiesDialog::initialiseDialog();
  form.addPropertyButton->setVisible(!texts(Settings).text(OffersAdding).isEmpty());
  form.helpButton->hide();
  form.itemsListView->setFocus(Qt::TabFocusReason);
}

void EditObjectPropertiesDialog::addPropertyButton_clicked() {
  addProperty();
}
