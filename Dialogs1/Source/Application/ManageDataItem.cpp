#include "Application/ManageDataItem.h"

#include "HostSupportQt/Text.h"

#include <QFont>

ManageDataItem::ManageDataItem(const char* line)
    : DataGroupFlags(readDataGroup(line).flags), m_line(line) {}

QVariant ManageDataItem::data(int column, int role) const {
  if (role == Qt::FontRole && isCurrent) {
    QFont font; // the view's own, but for what is set here
    font.setBold(true);
    return font;
  }
  if (role != Qt::DisplayRole || (column == Title && hasNewTitle()))
    return QTreeWidgetItem::data(column, role);
  switch (column) {
  case Name:
    return toQs(readDataGroup(m_line).name);
  case Title:
    return toQs(readDataGroup(m_line).title);
  case Analysis:
    return toQs(readDataGroup(m_line).analysis);
  default:
    return toQs(dataGroupWords(*this, ","));
  }
}

YString ManageDataItem::result() const {
  const DataGroup group = readDataGroup(m_line);
  return writeDataGroup(group.name, hasNewTitle() ? toYs(text(Title)) : group.title, *this);
}
