#include "Properties/ListViewProperty.h"

#include "Core/Frame/Integers.h"
#include "Core/Properties/PropertyList.h"
#include "HostSupportQt/Text.h"
#include "Pieces/SelectColour.h"

QVariant ListViewProperty::data(int column, int role) const {
  if (role == Qt::DisplayRole)
    return column == 0 ? m_property.name : m_property.shownValue();
  if (role == Qt::DecorationRole && column == 1 && m_property.kind() == PropertyKind::Colour) {
    bool isPacked = false; // else it is the name of a colour that the host knows
    m_property.value.text.toLongLong(&isPacked);
    return isPacked ? QVariant(colourPatch(leadingWord(toYs(m_property.value.text)))) : QVariant();
  }
  return QTreeWidgetItem::data(column, role);
}
