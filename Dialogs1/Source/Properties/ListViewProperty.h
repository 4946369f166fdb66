#pragma once

#include "Core/Properties/ObjectProperties.h"

#include <QTreeWidgetItem>

/// A row of a property list: the name in column 0, the value in column 1.
class ListViewProperty : public QTreeWidgetItem {
public:
  /// `passed` is the value as the script passes it.
  ListViewProperty(const QString& name, const char* passed, const YString& type, int rowIndex,
                   const YString& extra);

  PropertyKind kind() const { return propertyKind(type); }
  const QString& name() const { return m_name; }
  void setValue(const QString& value); ///< with real line breaks
  QString shownValue() const { return shownPropertyText(rawValue); }
  /// Takes what the user made of the shown value.
  void setShownValue(const QString& line);

  std::optional<int> attributes; ///< flags of the kind `Flagged`
  int rowIndex;                  ///< in the arguments and in the result
  YString type;
  QString rawValue; ///< with real line breaks
  YString extra;

  /// The texts are taken from the members: a store of their own would cost more than all the rest
  /// of a long list.
  QVariant data(int column, int role) const override;

private:
  QString m_name;
};
