#pragma once

#include "Core/Application/DataGroups.h"

#include <QTreeWidgetItem>

/// One data group in the list. Its texts are the script's own, read as they are shown; only a title
/// that was edited is kept here, in its column.
class ManageDataItem : public QTreeWidgetItem, public DataGroupFlags {
public:
  enum Column { Name, Title, Analysis, Flags };

  /// `line` describes the group and has to outlive the item.
  explicit ManageDataItem(const char* line);

  QVariant data(int column, int role) const override;
  /// The group's line of the result.
  YString result() const;

private:
  bool hasNewTitle() const { return QTreeWidgetItem::data(Title, Qt::DisplayRole).isValid(); }

  const char* m_line;
};
