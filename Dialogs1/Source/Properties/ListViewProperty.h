#pragma once

#include <QTreeWidgetItem>

struct Property;

/// Shows a row of a property list: the name in column 0, the value in column 1.
class ListViewProperty : public QTreeWidgetItem {
public:
  explicit ListViewProperty(const Property& property) : m_property(property) {}

  void showChange() { emitDataChanged(); } ///< to be called when the property has changed

  /// The texts are taken from the property: a store of their own would cost more than all the rest
  /// of a long list.
  QVariant data(int column, int role) const override;

private:
  const Property& m_property;
};
