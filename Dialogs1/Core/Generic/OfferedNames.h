#pragma once

#include <QStringList>

#include <vector>

/// The names that a list offers, by row. Each knows its place in the vector that it came from, so
/// that names that are alike, or whose bytes are no valid text, stay apart.
class OfferedNames {
public:
  enum class Order { AsGiven, Ascending };

  OfferedNames() = default;
  OfferedNames(const QStringList& names, Order order);

  const QStringList& names() const { return m_names; } ///< by row
  /// Place of a row's name in the vector it came from.
  int place(int row) const { return m_places[static_cast<std::size_t>(row)]; }

  // Each gives a row, or -1 where there is none. A pass over 100,000 names takes a small part of a
  // display frame, so that it can be made on every keystroke.
  int rowOfPlace(int place) const;
  int rowOfName(const QString& name) const; ///< the same text, failing that in any letter case
  /// The same, failing that the first that begins with `text` in any case. An empty text means
  /// none.
  int nearestRow(const QString& text) const;

private:
  QStringList m_names;
  std::vector<int> m_places;
};
