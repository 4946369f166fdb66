#include "Properties/EditPropertyDialog.h"

#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

static const ScriptFunction declaration("EditPropertyDialog", 1, "SSSSSS", StringVectorResult,
                                        runDialogFunction<EditPropertyDialog, UserString>);

namespace {

enum Result { Flags, Value, FontStyle };

} // namespace

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
  if (!accepted)
    return;
  readProperty(&record);
  TextVector result;
  result.setNumber(Flags, record.flags);
  result.set(Value, record.value);
  result.set(FontStyle, record.fontStyle);
  setTextsResult(result);
}
