#pragma once

#include "Drive/ItemCells.h"

#include <vector>

/// What a user does to the cells of a list, tree or table, by mouse and keyboard.
class ItemInput : public ItemCells {
public:
  using ItemCells::ItemCells;
  static ItemInput of(QWidget* widget) { return ItemInput(ItemCells::of(widget)); }

  void click(int row, int column, bool twice = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void edit(int row, int column, const QString& text);
  void check(int row, int column, bool on);
  /// Edits, checks (for a bool) or sets the widget in the cell.
  void set(int row, int column, const QVariant& value);
  /// Makes exactly these rows (numbers or texts) or cells ([row, column]) the selection.
  void choose(const QVariantList& rows);

private:
  explicit ItemInput(const ItemCells& cells) : ItemCells(cells) {}
  QModelIndex clickableCell(const QModelIndex& row) const;
  QModelIndexList chosenCells(const QVariantList& rows, bool* areCells) const;
  std::vector<QModelIndex> comparable(const QModelIndexList& cells, bool areCells) const;
  void clickIndex(const QModelIndex& index, bool twice, Qt::KeyboardModifiers modifiers);
  void requireView() const;
  QWidget* openEditor(const QModelIndex& index);
};
