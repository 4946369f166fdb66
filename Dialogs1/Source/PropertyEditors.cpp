#include "PropertyEditors.h"

#include "FontSpec.h"
#include "HostSupportQt/HostSupportQt.h"
#include "InputDialog.h"
#include "Integers.h"
#include "ListViewProperty.h"
#include "RadioSelect.h"
#include "RowBox.h"
#include "ScriptTexts.h"
#include "SelectColour.h"
#include "SelectFontDialog.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <algorithm>

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

void editFlagged(QWidget*, ListViewProperty*, const QStringList&) {} // TEMP

void editChoice(QWidget* over, ListViewProperty* row) {
  const QStringList choices = propertyChoices(row->type);
  if (refusesRowCount(static_cast<unsigned>(choices.size()), "RadioSelect"))
    return;
  QStringList captions;
  for (QString caption : choices) // an ampersand in a value is meant to be seen
    captions.append(shownCaption(caption).replace(QLatin1Char('&'), QLatin1String("&&")));
  if (const auto choice = askForChoice(over, Words::tr("Select Value"), captions,
                                       propertyChoice(choices, row->rawValue)))
    row->setValue(choices.at(*choice));
}

} // namespace

bool editPropertyRow(QWidget* over, ListViewProperty* row, const QStringList& fontStyles) {
  const QString before = row->rawValue;
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
  return row->rawValue != before;
}
