#include "Core/Pwl/PointRow.h"

bool PointRow::hasCell(int column) const {
  if (column == 0)
    return true;
  if (column == 1)
    return kind != Kind::StartData || fault.isEmpty();
  return kind == Kind::Point && fault.isEmpty();
}

bool PointRow::isSelectable(int column) const {
  const bool isWritten = kind == Kind::StartData && column == 0 && fault.isEmpty();
  return kind != Kind::Origin && !isWritten && hasCell(column);
}

bool PointRow::isEditable(int column) const {
  return column < 2 && isSelectable(column);
}
