#include "Properties/ListViewProperty.h"

#include "Core/Properties/PropertyList.h"
#include "Pieces/SelectColour.h"

QVariant ListViewProperty::data(int column, int role) const {
  if (role == Qt::DisplayRole)
    return column == 0 ? m_property.name : m_property.shownValue();
  if (role == Qt::DecorationRole && column == 1 && m_property.kind() == PropertyKind::Colour) {
    bool isPacked = false; // else it is the name of a colour that the host knows
    const int packed = m_property.value.text.toInt(&isPacked);
    return isPacked ? QVariant(colourPatch(packed)) : QVariant();
  }
  return QTreeWidgetItem::data(column, role);
}
