#pragma once

#include <QAbstractItemView>
#include <QPointer>
#include <QStringList>
#include <QVariant>

/// The cells of a list, tree or table, by row and column. The rows of a tree count depth-first,
/// collapsed ones included; a list has one column.
///
/// They read as the user would see them, a widget that stands in a cell included. `DriveError` is
/// raised where there is no such cell. `ItemInput` acts on them.
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

protected:
  QModelIndex index(int row, int column) const;
  int rowOf(const QModelIndex& index) const;
  int rowOf(const QVariant& numberOrText) const;
  bool isHidden(const QModelIndex& index) const;

  QPointer<QAbstractItemView> m_view; ///< an action may close its dialog

private:
  QVector<QModelIndex> rowIndexes() const;
  QString shownText(const QModelIndex& index) const;
};
