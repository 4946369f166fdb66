#include "Properties/EditPropertyDialog.h"

#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

static const ScriptFunction declaration("EditPropertyDialog", 1, "SSSSSS", StringVectorResult,
                                        runDialogFunction<EditPropertyDialog, UserString>);

int EditPropertyDialog::helpContextId() {
  return sp_GetHelpContextId("Editing_properties");
}

void EditPropertyDialog::loadProperty(PropertyRecord* property) {
  AddPropertyDialog::loadProperty(property);
  setWindowTitle(tr("Edit Property"));
  fixName();

  const PropertyAttributes attributes = readPropertyFlags(property->flags);
  // Of a property that may only be looked at there is nothing but to close the box.
  if (property->isInstance && attributes.isProtected)
    form.cancelButton->setFocus(Qt::TabFocusReason);

  if (attributes.staysHidden) {
    form.cbHidden->setChecked(true);
    cbHidden_clicked();
    form.cbHidden->setEnabled(false);
    form.textLabel7->setEnabled(false);
  }
}

void EditPropertyDialog::readDialog(UserDataType, bool accepted) {
  char** result = accepted ? makeStringResult(3) : nullptr;
  if (!result)
    return;
  readProperty(&record);
  result[0] = hostString(YString(record.flags).c_str());
  result[1] = hostString(toQs(record.value));
  result[2] = hostString(record.fontStyle.c_str());
}
