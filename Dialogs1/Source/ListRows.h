#pragma once

#include "RowBlocks.h"

#include <QStyledItemDelegate>

class QListWidget;

/// Shows a text of any length and with any characters in a row that is one line high.
class OneLineDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale& locale) const override;
};

/// Gives all rows of a list the size of the widest, so that a list of any length is laid out at
/// once and still scrolls to the end of its texts. To be called again when its texts have changed.
void makeRowsUniform(QListWidget* list);

/// The selected rows of a view whose rows have no children.
RowBlocks selectedRows(const QAbstractItemView* view);
/// Selects rows besides those that are selected.
void selectRows(QAbstractItemView* view, const RowBlocks& rows);
