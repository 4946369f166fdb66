#include "Properties/PropertyEditors.h"

#include "Core/Frame/Integers.h"
#include "Core/Pieces/FontSpec.h"
#include "Generic/InputDialog.h"
#include "Generic/RadioSelect.h"
#include "Generic/RowBox.h"
#include "Generic/SelectFontDialog.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/SelectColour.h"
#include "Properties/AddPropertyDialog.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

struct Messages {
  Q_DECLARE_TR_FUNCTIONS(PropertyEditors)
};

void editText(QWidget* over, Property* property) {
  if (const auto text =
          askForText(over, Messages::tr("Enter new property value"), property->shownValue()))
    property->setShownValue(*text);
}

void editFont(QWidget* over, Property* property) {
  auto font = askForFont(over, toYs(property->value.text));
  if (!font)
    return;
  font->colour = 0; // an object's colour is a property of its own
  property->value.text = toQs(writeFontSpec(*font));
}

void editColour(QWidget* over, Property* property) {
  if (const auto colour = askForColour(over, leadingWord(toYs(property->value.text))))
    property->value.text = QString::number(*colour);
}

void editFlagged(QWidget* over, Property* property, const QStringList& fontStyles) {
  PropertyRecord record;
  record.value = toYs(property->value.text);
  record.name = toYs(property->name);
  record.flags = property->value.attributes.value_or(0);
  record.fontStyles = fontStyles;
  if (!editProperty(over, &record))
    return;
  property->value.text = toQs(record.value); // the name is not the list's to change
  if (property->value.attributes || record.flags != 0)
    property->value.attributes = record.flags;
}

void editChoice(QWidget* over, Property* property) {
  const QStringList choices = propertyChoices(property->type);
  if (refusesRowCount(static_cast<unsigned>(choices.size()), over))
    return;
  if (const auto choice = askForChoice(over, Messages::tr("Select Value"), choices,
                                       propertyChoice(choices, property->value.text)))
    property->value.text = choices.at(*choice);
}

} // namespace

void editListedProperty(QWidget* over, Property* property, const QStringList& fontStyles) {
  switch (property->kind()) {
  case PropertyKind::Text:
    editText(over, property);
    break;
  case PropertyKind::Font:
    editFont(over, property);
    break;
  case PropertyKind::Colour:
    editColour(over, property);
    break;
  case PropertyKind::Flagged:
    editFlagged(over, property, fontStyles);
    break;
  case PropertyKind::Choice:
    editChoice(over, property);
    break;
  case PropertyKind::ReadOnly:
    QMessageBox::warning(over, Messages::tr("Read Only"),
                         Messages::tr("That property is read only and may not be edited"));
    break;
  }
}

std::optional<Property> askForNewProperty(QWidget* over, const QStringList& fontStyles) {
  AddPropertyDialog dialog("AddPropertyDialog", over);
  dialog.prepareDialog(nullptr, UserString);
  PropertyRecord record;
  record.fontStyles = fontStyles;
  dialog.loadProperty(&record);
  while (dialog.exec() == QDialog::Accepted) {
    dialog.readProperty(&record);
    const QString name = toQs(record.name);
    if (!name.isEmpty() && !name.contains(QLatin1Char(';')))
      return Property{name, "SchemProperty", {toQs(record.value), record.flags}, {}};
    QMessageBox::warning(over, dialog.windowTitle(),
                         Messages::tr("A property needs a name, without a semicolon in it."));
  }
  return std::nullopt;
}
