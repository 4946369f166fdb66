#pragma once

#include "Core/Pieces/RowBlocks.h"

#include <QItemSelectionModel>
#include <QStyledItemDelegate>

class QListWidget;
class QTreeWidget;
class QWidget;

/// Shows a text of any length and with any characters in a row that is one line high.
class OneLineDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale& locale) const override;
};

/// Gives all rows of a list the size of the widest, so that a list of any length is laid out at
/// once and still scrolls to the end of its texts. To be called again when its texts have changed.
void makeRowsUniform(QListWidget* list);
/// The same for a table without branches: rows of one height, columns as wide as their texts are,
/// within reason.
void makeRowsUniform(QTreeWidget* tree);

/// Makes a window as large as its lists and tables ask for, as far as that is wise on the screen.
/// By itself a window takes no more than two thirds of its width, too, and hides the last columns.
void resizeToContents(QWidget* window);

/// The selected rows of a view whose rows have no children.
RowBlocks selectedRows(const QAbstractItemView* view);
/// Selects rows besides those that are selected.
void selectRows(QAbstractItemView* view, const RowBlocks& rows);

/// The selection of a view that selects whole rows and has its columns in their order. Qt's own
/// compares the blocks of a selection pair by pair as it widens them to rows, which takes minutes
/// where hidden rows make tens of thousands of blocks.
class RowSelectionModel : public QItemSelectionModel {
public:
  using QItemSelectionModel::QItemSelectionModel;
  using QItemSelectionModel::select;
  void select(const QItemSelection& selection, SelectionFlags command) override;
};
