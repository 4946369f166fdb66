#include "Properties/AddPropertyDialog.h"

#include "Core/Frame/Integers.h"
#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ComboNames.h"

static const ScriptFunction declaration("AddPropertyDialog", 0, "SSSSSS", StringVectorResult,
                                        runDialogFunction<AddPropertyDialog, UserString>);

namespace {

enum Argument { NameText, FlagsText, ValueText, Owner, StyleName, StyleNames };
enum Result { Name, Flags, Value, FontStyle };

} // namespace

AddPropertyDialog::AddPropertyDialog(const char* objectName, QWidget* parent)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
  attributeBoxes = {
      {form.cbHidden, HiddenBit},         {form.cbProtected, ProtectedBit},
      {form.cbSelectable, SelectableBit}, {form.cbResolveSymbolic, ResolvesSymbolicBit},
      {form.cbShowName, ShowsNameBit},    {form.cbVertical, VerticalBit}};
  showPinParts(false);
  form.protectedLabel->hide();
  dimsSavingEnabled = true;

  connect(form.cbHidden, &QCheckBox::clicked, this, &AddPropertyDialog::cbHidden_clicked);
  connect(form.rbAuto, &QRadioButton::clicked, this, &AddPropertyDialog::rbAuto_clicked);
  connect(form.rbAbsolute, &QRadioButton::clicked, this, &AddPropertyDialog::rbAuto_clicked);
  connect(form.cbDefault, &QCheckBox::clicked, this, &AddPropertyDialog::cbDefault_clicked);
  connect(form.fontStyleCombo, QOverload<int>::of(&QComboBox::highlighted), this,
          &AddPropertyDialog::fontStyleCombo_highlighted);
}

int AddPropertyDialog::helpContextId() {
  return sp_GetHelpContextId("Defining_properties");
}

void AddPropertyDialog::showPinParts(bool shown) {
  setShown({form.cbPrefix, form.prefixLabel, form.cbSuffix, form.suffixLabel}, shown);
}

void AddPropertyDialog::gatherArguments() {
  record.name = getString(NameText);
  record.flags = leadingWord(getString(FlagsText));
  record.fontStyle = getString(StyleName);
  record.fontStyles = texts(StyleNames).all();
}

void AddPropertyDialog::initialiseDialog() {
  gatherArguments();
  record.value = getString(ValueText);
  record.isInstance = texts(Owner).is(0, "instance");
  loadProperty(&record);
}

void AddPropertyDialog::loadProperty(PropertyRecord* property) {
  const PropertyAttributes attributes = readPropertyFlags(property->flags);
  isInstance = property->isInstance;
  form.nameEdit->setText(toQs(property->name));
  form.valueEdit->setPlainText(toQs(property->value));
  attributeBoxes.load(Bits(property->flags));
  cbHidden_clicked();
  if (attributes.isAbsolute) {
    form.justificationCombo->setCurrentIndex(
        justificationRow(attributes, form.justificationCombo->count()));
  } else {
    form.normalCombo->setCurrentIndex(attributes.horizontal);
    form.rotatedCombo->setCurrentIndex(attributes.vertical);
  }
  form.rbAuto->setChecked(!attributes.isAbsolute);
  form.rbAbsolute->setChecked(attributes.isAbsolute);
  rbAuto_clicked();

  // What is shown in the end goes by the style's name, and not by the index among the flags: that
  // one counts in another order.
  form.fontStyleCombo->setCurrentIndex(attributes.fontStyle);
  fontStyleCombo_highlighted(attributes.fontStyle);
  loadFontStyles(*property);
  describeBoxes();
  if (isInstance && attributes.isProtected)
    letOnlyLook();
  form.nameEdit->setFocus(Qt::TabFocusReason);
  form.nameEdit->selectAll();
}

void AddPropertyDialog::describeBoxes() {
  // Who hears a box hears what stands beside it.
  const std::pair<QWidget*, QLabel*> notes[] = {
      {form.cbHidden, form.textLabel7},     {form.cbVertical, form.verticalLabel},
      {form.cbSelectable, form.textLabel9}, {form.cbProtected, form.textLabel10},
      {form.cbShowName, form.textLabel12},  {form.cbResolveSymbolic, form.textLabel1_2}};
  for (const auto& [box, note] : notes)
    box->setAccessibleDescription(note->text().simplified());
}

void AddPropertyDialog::loadFontStyles(const PropertyRecord& property) {
  showSortedNames(form.fontStyleCombo, property.fontStyles);
  if (!property.fontStyle.isEmpty())
    form.fontStyleCombo->setCurrentIndex(form.fontStyleCombo->findText(
        toQs(property.fontStyle), Qt::MatchExactly | Qt::MatchCaseSensitive));
  form.cbDefault->setChecked(property.fontStyle.isEmpty());
  cbDefault_clicked();
}

void AddPropertyDialog::letOnlyLook() {
  setEnabled({form.textLocationGroupBox, form.propertyAttributesGroupBox}, false);
  form.nameEdit->setReadOnly(true);
  form.valueEdit->setReadOnly(true);
  form.okButton->hide();
  form.cancelButton->setText(tr("Close"));
  form.cancelButton->setDefault(true);
  form.protectedLabel->show();
}

void AddPropertyDialog::fixName() {
  setEnabled({form.textLabel1, form.nameEdit}, false);
  form.valueEdit->setFocus(Qt::TabFocusReason);
}

void AddPropertyDialog::fontStyleCombo_highlighted(int) {}

void AddPropertyDialog::cbDefault_clicked() {
  updateEnables();
}

void AddPropertyDialog::cbHidden_clicked() {
  if (form.cbHidden->isChecked())
    form.cbSelectable->setChecked(false); // nobody can click on what is not to be seen
  updateEnables();
}

void AddPropertyDialog::rbAuto_clicked() {
  updateEnables();
}

void AddPropertyDialog::updateEnables() {
  const bool isSeen = !form.cbHidden->isChecked();
  const bool isAuto = form.rbAuto->isChecked();
  setEnabled({form.rbAuto, form.rbAbsolute}, isSeen);
  setEnabled({form.cbSelectable, form.textLabel9}, isSeen);
  setEnabled({form.normalCombo, form.textLabel4, form.rotatedCombo, form.textLabel5},
             isSeen && isAuto);
  setEnabled({form.justificationCombo, form.textLabel6}, isSeen && !isAuto);
  setEnabled({form.cbVertical, form.verticalLabel}, !isAuto);
  setEnabled({form.cbProtected, form.textLabel10}, !isInstance); // only its symbol can lift that
  setEnabled({form.fontStyleCombo}, !form.cbDefault->isChecked());
}

void AddPropertyDialog::readProperty(PropertyRecord* property) const {
  // What nobody touched stays byte for byte, even where a field shows it otherwise.
  if (form.valueEdit->document()->isModified())
    property->value = toYs(form.valueEdit->toPlainText());
  if (form.nameEdit->isModified())
    property->name = toYs(form.nameEdit->text());
  property->fontStyle =
      form.cbDefault->isChecked() ? YString() : toYs(form.fontStyleCombo->currentText());

  Bits flags(property->flags);
  attributeBoxes.store(&flags);
  PropertyAttributes attributes = readPropertyFlags(flags.word());
  attributes.isAbsolute = !form.rbAuto->isChecked();
  if (attributes.isAbsolute) {
    setJustificationRow(&attributes, form.justificationCombo->currentIndex());
  } else {
    attributes.horizontal = form.normalCombo->currentIndex();
    attributes.vertical = form.rotatedCombo->currentIndex();
  }
  attributes.fontStyle = form.fontStyleCombo->currentIndex();
  property->flags = writePropertyFlags(property->flags, attributes);
}

void AddPropertyDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  readProperty(&record);
  TextVector result;
  result.set(Name, record.name);
  result.setNumber(Flags, record.flags);
  result.set(Value, record.value);
  result.set(FontStyle, record.fontStyle);
  setTextsResult(result);
}

bool editProperty(QWidget* over, PropertyRecord* property) {
  AddPropertyDialog dialog("EditPropertyDialog", over);
  dialog.setWindowTitle(AddPropertyDialog::tr("Edit Property"));
  dialog.prepareDialog(nullptr, UserString);
  dialog.loadProperty(property);
  dialog.fixName();
  PropertyRecord shown = *property;
  dialog.readProperty(&shown);
  if (dialog.exec() != QDialog::Accepted)
    return false;
  const std::int32_t passed = property->flags;
  dialog.readProperty(property);
  property->flags =
      keepUntouched(passed, shown.flags, property->flags, property->fontStyle != shown.fontStyle);
  return true;
}
