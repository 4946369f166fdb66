#include "Properties/EditPinDialog.h"

#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditPinDialog", 1, "SSSSSS", StringVectorResult,
                                        runDialogFunction<EditPinDialog, UserString>);

namespace {

enum Argument { Ticks = 2 };
enum Tick { Prefix, Suffix };
enum Result { Flags, Name, FontStyle, FirstTick };

} // namespace

EditPinDialog::EditPinDialog() : AddPropertyDialog("EditPinDialog") {
  ticks = {{form.cbPrefix, Prefix}, {form.cbSuffix, Suffix}};
  setSizeGripEnabled(false);
  dimsSavingEnabled = false;
  setWindowTitle(tr("Edit Pin"));
  form.textLabel1->setText(tr("Pin name"));
  form.textLabel7->setText(tr("Pin name will be hidden\non schematic"));
  form.propertyAttributesGroupBox->setTitle(tr("Attributes"));

  setShown({form.helpButton, form.cbResolveSymbolic, form.textLabel1_2, form.textLabel4,
            form.normalCombo, form.textLabel5, form.rotatedCombo, form.rbAbsolute, form.rbAuto,
            form.cbSelectable, form.textLabel9, form.cbProtected, form.textLabel10, form.cbShowName,
            form.textLabel12, form.valueEdit, form.textLabel2},
           false);
  showPinParts(true);
  // The radio buttons leave their column to the label.
  form.textLocationLayout->addWidget(form.textLabel6, 2, 0);
  form.textLocationLayout->addWidget(form.justificationCombo, 2, 1, 1, 2);
  resize(minimumSizeHint());
}

void EditPinDialog::initialiseDialog() {
  ticks.load(Elements(texts(Ticks)));
  gatherArguments();
  loadProperty(&record);
}

void EditPinDialog::loadProperty(PropertyRecord* property) {
  // The name of a pin does not turn with its symbol.
  PropertyAttributes attributes = readPropertyFlags(property->flags);
  attributes.isAbsolute = true;
  property->flags = writePropertyFlags(property->flags, attributes);
  AddPropertyDialog::loadProperty(property);
}

void EditPinDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  readProperty(&record);
  TextVector result;
  result.setNumber(Flags, record.flags);
  result.set(Name, record.name);
  result.set(FontStyle, record.fontStyle);
  Elements elements(&result, FirstTick);
  ticks.store(&elements);
  setTextsResult(result);
}
