#pragma once

#include "Core/Pieces/RowBlocks.h"

#include <QStringList>

/// The two lists of an add/remove box. Items go by number: those selected at the start are counted
/// first, the available ones follow, so that an item stays itself wherever it is moved.
///
/// Rows may be passed as blocks in any order; blocks must not overlap. Every operation is linear in
/// the number of items.
class AddRemoveLists {
public:
  using Items = std::vector<int>;

  AddRemoveLists() = default;
  /// Selected items stand as given. Of the available ones each is shown once, and only if it is not
  /// selected; `comparison` tells which texts are the same.
  AddRemoveLists(const QStringList& selected, const QStringList& available,
                 Qt::CaseSensitivity comparison);

  const Items& selected() const { return m_selected; }
  const Items& available() const { return m_available; }
  const QString& text(int item) const { return m_texts.at(item); }

  /// Moves rows of the available list to the end of the selected one, in list order.
  void add(RowBlocks rows);
  /// Moves rows of the selected list to the end of the available one, in list order.
  void remove(RowBlocks rows);
  /// Moves rows of the selected list up (`step` -1) or down (1) by one, and returns where they are
  /// now. Rows that are at the end of the list already stay, and so do those that they stop.
  RowBlocks move(RowBlocks rows, int step);

private:
  QStringList m_texts;
  Items m_selected;
  Items m_available;
};
