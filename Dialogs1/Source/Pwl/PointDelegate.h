#pragma once

#include "Pieces/ListRows.h"

#include <functional>

class QTableWidget;

/// Cells have colours of their own, which have to be seen on a dark table as well, and an alignment
/// that says only left. What does not count is grey and slanted.
class PointDelegate : public OneLineDelegate {
public:
  using Counts = std::function<bool(int row, const QString& text)>;

  PointDelegate(QObject* parent, Counts counts)
      : OneLineDelegate(parent), m_counts(std::move(counts)) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

protected:
  /// Undo is the table's where nothing has been typed into the cell yet.
  bool eventFilter(QObject* editor, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
  void paintComment(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                    const QTableWidget* table) const;

  Counts m_counts;
};
