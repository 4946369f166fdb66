#include "Properties/PropertyEditors.h"

#include "Core/Pieces/FontSpec.h"
#include "Core/Pieces/Integers.h"
#include "Generic/InputDialog.h"
#include "Generic/RadioSelect.h"
#include "Generic/RowBox.h"
#include "Generic/SelectFontDialog.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ScriptTexts.h"
#include "Pieces/SelectColour.h"
#include "Properties/AddPropertyDialog.h"
#include "Properties/ListViewProperty.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(PropertyEditors)
};

void editText(QWidget* over, ListViewProperty* row) {
  if (const auto text = askForText(over, Words::tr("Enter new property value"), row->shownValue()))
    row->setShownValue(*text);
}

void editFont(QWidget* over, ListViewProperty* row) {
  auto font = askForFont(over, toYs(row->rawValue));
  if (!font)
    return;
  font->colour = 0; // an object's colour is a property of its own
  row->setValue(toQs(writeFontSpec(*font)));
}

void editColour(QWidget* over, ListViewProperty* row) {
  if (const auto colour = askForColour(over, leadingInteger(toYs(row->rawValue))))
    row->setValue(QString::number(*colour));
}

void editFlagged(QWidget* over, ListViewProperty* row, const QStringList& fontStyles) {
  PropertyRecord property;
  property.value = toYs(row->rawValue);
  property.name = toYs(row->name());
  property.flags = row->attributes.value_or(0);
  property.fontStyles = fontStyles;
  if (!editProperty(over, &property))
    return;
  row->attributes = property.flags;
  row->setValue(toQs(property.value)); // the name is not the list's to change
}

void editChoice(QWidget* over, ListViewProperty* row) {
  const QStringList choices = propertyChoices(row->type);
  if (refusesRowCount(static_cast<unsigned>(choices.size()), "RadioSelect"))
    return;
  QStringList captions;
  for (const QString& caption : choices) // an ampersand in a value is meant to be seen
    captions.append(shownCaption(caption).replace(QLatin1Char('&'), QLatin1String("&&")));
  if (const auto choice = askForChoice(over, Words::tr("Select Value"), captions,
                                       propertyChoice(choices, row->rawValue)))
    row->setValue(choices.at(*choice));
}

} // namespace

void editPropertyRow(QWidget* over, ListViewProperty* row, const QStringList& fontStyles) {
  switch (row->kind()) {
  case PropertyKind::Text:
    editText(over, row);
    break;
  case PropertyKind::Font:
    editFont(over, row);
    break;
  case PropertyKind::Colour:
    editColour(over, row);
    break;
  case PropertyKind::Flagged:
    editFlagged(over, row, fontStyles);
    break;
  case PropertyKind::Choice:
    editChoice(over, row);
    break;
  case PropertyKind::ReadOnly:
    QMessageBox::warning(over, Words::tr("Read Only"),
                         Words::tr("That property is read only and may not be edited"));
    break;
  }
}

ListViewProperty* askForNewProperty(QWidget* over, int rowIndex, const QStringList& fontStyles) {
  AddPropertyDialog dialog("AddPropertyDialog", over);
  dialog.prepareDialog(nullptr, UserString);
  PropertyRecord property;
  property.fontStyles = fontStyles;
  dialog.loadProperty(&property);
  while (dialog.exec() == QDialog::Accepted) {
    dialog.readProperty(&property);
    const QString name = toQs(property.name);
    if (!name.isEmpty() && !name.contains(QLatin1Char(';'))) {
      auto* row = new ListViewProperty(name, nullptr, "SchemProperty", rowIndex, YString());
      row->attributes = property.flags;
      row->rawValue = toQs(property.value);
      return row;
    }
    QMessageBox::warning(over, dialog.windowTitle(),
                         Words::tr("A property needs a name, without a semicolon in it."));
  }
  return nullptr;
}
