#include "Properties/EditPinDialog.h"

#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/Parsing.h"
#include "Pieces/ScriptTexts.h"

static const ScriptFunction declaration("EditPinDialog", 1, "SSSSSS", StringVectorResult,
                                        runDialogFunction<EditPinDialog, UserString>);

EditPinDialog::EditPinDialog() : AddPropertyDialog("EditPinDialog") {
  setSizeGripEnabled(false);
  dimsSavingEnabled = false;
  setWindowTitle(tr("Edit Pin"));
  form.textLabel1->setText(tr("Pin name"));
  form.textLabel7->setText(tr("Pin name will be hidden\non schematic"));
  form.propertyAttributesGroupBox->setTitle(tr("Attributes"));

  for (QWidget* ofProperties : std::initializer_list<QWidget*>{
           form.helpButton, form.cbResolveSymbolic, form.textLabel1_2, form.textLabel4,
           form.normalCombo, form.textLabel5, form.rotatedCombo, form.rbAbsolute, form.rbAuto,
           form.cbSelectable, form.textLabel9, form.cbProtected, form.textLabel10, form.cbShowName,
           form.textLabel12, form.valueEdit, form.textLabel2})
    ofProperties->hide();
  showPinParts(true);
  // The radio buttons leave their column to the label.
  form.textLocationLayout->addWidget(form.textLabel6, 2, 0);
  form.textLocationLayout->addWidget(form.justificationCombo, 2, 1, 1, 2);
  resize(minimumSizeHint());
}

void EditPinDialog::initialiseDialog() {
  const char* const* ticks = nullptr;
  unsigned count = 0;
  getStringVector(2, &ticks, &count);
  const auto isTrue = [&](unsigned index) {
    return index < count && sp_CompareNoCase(ticks[index], "true") == 0;
  };
  form.cbPrefix->setChecked(isTrue(0));
  form.cbSuffix->setChecked(isTrue(1));
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
  char** result = accepted ? makeStringResult(5) : nullptr;
  if (!result)
    return;
  readProperty(&record);
  result[0] = hostString(YString(record.flags).c_str());
  result[1] = hostString(record.name.c_str());
  result[2] = hostString(record.fontStyle.c_str());
  result[3] = hostString(flagWord(form.cbPrefix->isChecked()));
  result[4] = hostString(flagWord(form.cbSuffix->isChecked()));
}
