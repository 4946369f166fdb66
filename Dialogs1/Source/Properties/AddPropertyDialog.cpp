#include "Properties/AddPropertyDialog.h"

#include "Core/Pieces/Integers.h"
#include "Core/Properties/PropertyFlags.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ComboNames.h"

static const ScriptFunction declaration("AddPropertyDialog", 0, "SSSSSS", StringVectorResult,
                                        runDialogFunction<AddPropertyDialog, UserString>);

namespace {

using Form = Ui::BaseAddPropertyDialog;

/// The attributes that are a check box.
constexpr struct {
  QCheckBox* Form::*box;
  bool PropertyAttributes::*attribute;
} checkBoxes[] = {
    {&Form::cbHidden, &PropertyAttributes::isHidden},
    {&Form::cbProtected, &PropertyAttributes::isProtected},
    {&Form::cbSelectable, &PropertyAttributes::isSelectable},
    {&Form::cbResolveSymbolic, &PropertyAttributes::resolvesSymbolic},
    {&Form::cbShowName, &PropertyAttributes::showsName},
    {&Form::cbVertical, &PropertyAttributes::isVertical},
};

void enable(std::initializer_list<QWidget*> widgets, bool enabled) {
  for (QWidget* widget : widgets)
    widget->setEnabled(enabled);
}

} // namespace

AddPropertyDialog::AddPropertyDialog(const char* objectName, QWidget* parent)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
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
  for (QWidget* part : std::initializer_list<QWidget*>{form.cbPrefix, form.prefixLabel,
                                                       form.cbSuffix, form.suffixLabel})
    part->setVisible(shown);
}

void AddPropertyDialog::gatherArguments() {
  record.name = getString(0);
  record.flags = leadingInteger(getString(1));
  record.fontStyle = getString(4);
  const char* const* names = nullptr;
  unsigned count = 0;
  getStringVector(5, &names, &count);
  record.fontStyles.reserve(static_cast<int>(count));
  for (unsigned i = 0; i < count; ++i)
    record.fontStyles.append(YString(names[i]));
}

void AddPropertyDialog::initialiseDialog() {
  gatherArguments();
  record.value = getString(2);
  record.isInstance = sp_CompareNoCase(getString(3), "instance") == 0;
  loadProperty(&record);
}

void AddPropertyDialog::loadProperty(PropertyRecord* property) {
  const PropertyAttributes attributes = readPropertyFlags(property->flags);
  isInstance = property->isInstance;
  form.nameEdit->setText(toQs(property->name));
  form.valueEdit->setPlainText(toQs(property->value));
  for (const auto& one : checkBoxes)
    (form.*one.box)->setChecked(attributes.*one.attribute);
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
  if (isInstance && attributes.isProtected)
    letOnlyLook();
  form.nameEdit->setFocus(Qt::TabFocusReason);
}

void AddPropertyDialog::loadFontStyles(const PropertyRecord& property) {
  QStringList names;
  names.reserve(property.fontStyles.count());
  for (const YString& style : property.fontStyles)
    names.append(toQs(style));
  showSortedNames(form.fontStyleCombo, names);
  if (!property.fontStyle.isEmpty())
    form.fontStyleCombo->setCurrentIndex(form.fontStyleCombo->findText(
        toQs(property.fontStyle), Qt::MatchExactly | Qt::MatchCaseSensitive));
  form.cbDefault->setChecked(property.fontStyle.isEmpty());
  cbDefault_clicked();
}

void AddPropertyDialog::letOnlyLook() {
  form.textLocationGroupBox->setEnabled(false);
  form.propertyAttributesGroupBox->setEnabled(false);
  form.nameEdit->setReadOnly(true);
  form.valueEdit->setReadOnly(true);
  form.okButton->hide();
  form.cancelButton->setText(tr("Close"));
  form.cancelButton->setDefault(true);
  form.protectedLabel->show();
}

void AddPropertyDialog::fixName() {
  form.textLabel1->setEnabled(false);
  form.nameEdit->setEnabled(false);
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
  enable({form.rbAuto, form.rbAbsolute}, isSeen);
  enable({form.cbSelectable, form.textLabel9}, isSeen);
  enable({form.normalCombo, form.textLabel4, form.rotatedCombo, form.textLabel5}, isSeen && isAuto);
  enable({form.justificationCombo, form.textLabel6}, isSeen && !isAuto);
  enable({form.cbVertical, form.verticalLabel}, !isAuto);
  enable({form.cbProtected, form.textLabel10}, !isInstance); // only its symbol can lift that
  enable({form.fontStyleCombo}, !form.cbDefault->isChecked());
}

void AddPropertyDialog::readProperty(PropertyRecord* property) const {
  // What nobody touched stays byte for byte, even where a field shows it otherwise.
  if (form.valueEdit->document()->isModified())
    property->value = toYs(form.valueEdit->toPlainText());
  if (form.nameEdit->isModified())
    property->name = toYs(form.nameEdit->text());
  property->fontStyle =
      form.cbDefault->isChecked() ? YString() : toYs(form.fontStyleCombo->currentText());

  PropertyAttributes attributes = readPropertyFlags(property->flags);
  attributes.isAbsolute = !form.rbAuto->isChecked();
  if (attributes.isAbsolute) {
    setJustificationRow(&attributes, form.justificationCombo->currentIndex());
  } else {
    attributes.horizontal = form.normalCombo->currentIndex();
    attributes.vertical = form.rotatedCombo->currentIndex();
  }
  for (const auto& one : checkBoxes)
    attributes.*one.attribute = (form.*one.box)->isChecked();
  attributes.fontStyle = form.fontStyleCombo->currentIndex();
  property->flags = writePropertyFlags(property->flags, attributes);
}

void AddPropertyDialog::readDialog(UserDataType, bool accepted) {
  char** result = accepted ? makeStringResult(4) : nullptr;
  if (!result)
    return;
  readProperty(&record);
  result[0] = hostString(record.name.c_str());
  result[1] = hostString(YString(record.flags).c_str());
  result[2] = hostString(record.value.c_str());
  result[3] = hostString(record.fontStyle.c_str());
}

bool editProperty(QWidget* over, PropertyRecord* property) {
  AddPropertyDialog dialog("EditPropertyDialog", over);
  dialog.setWindowTitle(AddPropertyDialog::tr("Edit Property"));
  dialog.prepareDialog(nullptr, UserString);
  dialog.loadProperty(property);
  dialog.fixName();
  if (dialog.exec() != QDialog::Accepted)
    return false;
  dialog.readProperty(property);
  return true;
}
