#include "Properties/EditObjectPropertiesDialog.h"

#include "Frame/ScriptFunction.h"
#include "Pieces/ScriptTexts.h"

static const ScriptFunction declaration("EditObjectPropertiesDialog", 2, "SSSSSS",
                                        StringVectorResult,
                                        runDialogFunction<EditObjectPropertiesDialog, UserString>);

static constexpr int settingsArgument = 3;
static constexpr unsigned addSetting = 4;

EditObjectPropertiesDialog::EditObjectPropertiesDialog()
    : BaseObjPropertiesDialog("EditObjectPropertiesDialog") {
  form.setupUi(this);
  connect(form.addPropertyButton, &QPushButton::clicked, this,
          &EditObjectPropertiesDialog::addPropertyButton_clicked);
}

void EditObjectPropertiesDialog::initialiseDialog() {
  BaseObjPropertiesDialog::initialiseDialog();
  const char* const* settings = nullptr;
  unsigned count = 0;
  getStringVector(settingsArgument, &settings, &count);
  form.addPropertyButton->setVisible(!textAt(settings, count, addSetting).isEmpty());
  form.helpButton->hide();
  form.itemsListView->setFocus(Qt::TabFocusReason);
}

void EditObjectPropertiesDialog::addPropertyButton_clicked() {
  addProperty();
}
