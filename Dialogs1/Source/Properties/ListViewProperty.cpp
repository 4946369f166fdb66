#include "Properties/ListViewProperty.h"

#include "Pieces/SelectColour.h"

ListViewProperty::ListViewProperty(const QString& name, const char* passed, const YString& typeWord,
                                   int row, const YString& extraText)
    : rowIndex(row), type(typeWord), extra(extraText), m_name(name) {
  const PropertyValue value = readPropertyValue(passed, kind());
  attributes = value.attributes;
  rawValue = value.text;
}

void ListViewProperty::setValue(const QString& value) {
  rawValue = value;
  emitDataChanged();
}

void ListViewProperty::setShownValue(const QString& line) {
  // A line that stands as it was leaves a \n alone that was never a line break.
  if (line != shownValue())
    setValue(typedPropertyText(line));
}

QVariant ListViewProperty::data(int column, int role) const {
  if (role == Qt::DisplayRole)
    return column == 0 ? name() : shownValue();
  if (role == Qt::DecorationRole && column == 1 && kind() == PropertyKind::Colour) {
    bool isPacked = false; // else it is the name of a colour that the host knows
    const int packed = rawValue.toInt(&isPacked);
    return isPacked ? QVariant(colourPatch(packed)) : QVariant();
  }
  return QTreeWidgetItem::data(column, role);
}
