#pragma once

#include <QAbstractItemView>
#include <QPointer>
#include <QStringList>
#include <QVariant>

#include <vector>

/// The cells of a list, tree or table, by row and column. The rows of a tree count depth-first,
/// collapsed ones included; a list has one column.
///
/// What reads shows what the user would see, a widget that stands in a cell included. What acts
/// does so by mouse and keyboard. Both raise `DriveError` where there is no such cell.
class ItemCells {
public:
  explicit ItemCells(QAbstractItemView* view);
  /// Of the item view that this widget is; raises `DriveError` for any other.
  static ItemCells of(QWidget* widget);

  int rows() const;
  int columns() const;
  QString text(int row, int column) const;
  QVariantMap info(int row, int column) const;
  QStringList items() const;   ///< texts of the first column
  QStringList headers() const; ///< none for a list
  QVariantList table() const;
  /// Row, or row and column of a table; -1 where there is none.
  QVariant current() const;

  void click(int row, int column, bool twice = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void edit(int row, int column, const QString& text);
  void check(int row, int column, bool on);
  /// Edits, checks (for a bool) or sets the widget in the cell.
  void set(int row, int column, const QVariant& value);
  /// Makes exactly these rows (numbers or texts) or cells ([row, column]) the selection.
  void choose(const QVariantList& rows);

private:
  QVector<QModelIndex> rowIndexes() const;
  QModelIndex index(int row, int column) const;
  int rowOf(const QModelIndex& index) const;
  int rowOf(const QVariant& numberOrText) const;
  bool isHidden(const QModelIndex& index) const;
  QString shownText(const QModelIndex& index) const;
  QModelIndex clickableCell(const QModelIndex& row) const;
  QModelIndexList chosenCells(const QVariantList& rows, bool* areCells) const;
  std::vector<QModelIndex> comparable(const QModelIndexList& cells, bool areCells) const;
  void clickIndex(const QModelIndex& index, bool twice, Qt::KeyboardModifiers modifiers);
  void requireView() const;
  QWidget* openEditor(const QModelIndex& index);

  QPointer<QAbstractItemView> m_view; ///< an action may close its dialog
};
