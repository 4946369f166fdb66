#include "Drive/ItemInput.h"

#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/WidgetFinder.h"
#include "Drive/WidgetValues.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QListView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStyleOptionViewItem>
#include <QTableView>
#include <QTextEdit>

#include <algorithm>

namespace {

QRect checkBoxRect(const QAbstractItemView* view, const QModelIndex& index) {
  QStyleOptionViewItem option;
  option.initFrom(view);
  option.widget = view;
  option.rect = view->visualRect(index);
  option.features |= QStyleOptionViewItem::HasCheckIndicator;
  option.text = index.data().toString();
  if (!option.text.isEmpty())
    option.features |= QStyleOptionViewItem::HasDisplay;
  option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
  return view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view);
}

bool isChecked(const QModelIndex& index) {
  return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

/// The editor that is open in a view: the child of its viewport that has the focus inside.
QWidget* editorOf(const QAbstractItemView* view) {
  QWidget* widget = QApplication::focusWidget();
  if (!widget || widget == view->viewport() || !view->viewport()->isAncestorOf(widget))
    return nullptr;
  while (widget->parentWidget() != view->viewport())
    widget = widget->parentWidget();
  return widget;
}

} // namespace

void ItemInput::clickIndex(const QModelIndex& index, bool twice, Qt::KeyboardModifiers modifiers) {
  const QString place = QStringLiteral("cell %1, %2 of %3")
                            .arg(rowOf(index))
                            .arg(index.column())
                            .arg(describeWidget(m_view));
  if (isHidden(index))
    throw DriveError(place + QStringLiteral(" is hidden"));
  if (!(index.flags() & Qt::ItemIsEnabled) && !m_view->indexWidget(index))
    throw DriveError(place + QStringLiteral(" is disabled"));
  m_view->scrollTo(index);
  InputPlayer::settle();
  const QRect rect = m_view->visualRect(index) & m_view->viewport()->rect();
  if (rect.isEmpty())
    throw DriveError(place + QStringLiteral(" cannot be seen"));
  InputPlayer::clickAt(m_view->viewport(), rect, twice, modifiers);
  requireView();
}

void ItemInput::requireView() const {
  if (!m_view)
    throw DriveError(QStringLiteral("the view is gone after the click on it"));
}

void ItemInput::click(int row, int column, bool twice, Qt::KeyboardModifiers modifiers) {
  clickIndex(index(row, column), twice, modifiers);
}

QWidget* ItemInput::openEditor(const QModelIndex& index) {
  if (!(index.flags() & Qt::ItemIsEditable))
    throw DriveError(QStringLiteral("cell %1, %2 of %3 is not editable")
                         .arg(rowOf(index))
                         .arg(index.column())
                         .arg(describeWidget(m_view)));
  if (m_view->currentIndex() != index)
    clickIndex(index, false, Qt::NoModifier);
  InputPlayer::focus(m_view);
  const auto triggers = m_view->editTriggers();
  if (!editorOf(m_view) && triggers.testFlag(QAbstractItemView::EditKeyPressed))
    InputPlayer::pressKey(m_view->window(), Qt::Key_F2, Qt::NoModifier, QString());
  if (!editorOf(m_view)) // the view's own trigger, or what its dialog does on a double click
    clickIndex(index, true, Qt::NoModifier);
  if (QWidget* editor = editorOf(m_view))
    return editor;
  throw DriveError(QStringLiteral("no editor opens in cell %1, %2 of %3")
                       .arg(rowOf(index))
                       .arg(index.column())
                       .arg(describeWidget(m_view)));
}

void ItemInput::edit(int row, int column, const QString& text) {
  const QPersistentModelIndex cell = index(row, column);
  const QPointer<QWidget> editor = openEditor(cell);
  const QPointer<QWidget> view = m_view.data();
  const bool isMultiLine =
      qobject_cast<QPlainTextEdit*>(editor) || qobject_cast<QTextEdit*>(editor);
  if (auto* combo = qobject_cast<QComboBox*>(editor.data()); combo && combo->findText(text) >= 0)
    pickEntry(combo, combo->findText(text));
  else
    InputPlayer::replaceText(editor, text);
  const auto isOpen = [&] { return editor && editor->isVisible(); };
  InputPlayer::closePopups();
  if (isOpen() && !isMultiLine)
    InputPlayer::pressKey(m_view->window(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
  if (isOpen() && view) // its text takes the key, or it stands there for good
    m_view->setFocus(Qt::MouseFocusReason);
  InputPlayer::settle();
}

void ItemInput::check(int row, int column, bool on) {
  const QPersistentModelIndex cell = index(row, column);
  if (!(cell.flags() & Qt::ItemIsUserCheckable) || !cell.data(Qt::CheckStateRole).isValid())
    throw DriveError(QStringLiteral("cell %1, %2 of %3 has no check box")
                         .arg(row)
                         .arg(column)
                         .arg(describeWidget(m_view)));
  if (isChecked(cell) == on)
    return;
  if (!(cell.flags() & Qt::ItemIsEnabled) || isHidden(cell))
    throw DriveError(QStringLiteral("cell %1, %2 of %3 is disabled or hidden")
                         .arg(row)
                         .arg(column)
                         .arg(describeWidget(m_view)));
  m_view->scrollTo(cell);
  InputPlayer::settle();
  InputPlayer::clickAt(m_view->viewport(), checkBoxRect(m_view, cell) & m_view->viewport()->rect());
  if (cell.isValid() && isChecked(cell) != on) { // a delegate that draws it elsewhere
    InputPlayer::focus(m_view);
    InputPlayer::pressKey(m_view->window(), QStringLiteral("Space"));
  }
  if (cell.isValid() && isChecked(cell) != on)
    throw DriveError(QStringLiteral("the check box of cell %1, %2 of %3 did not change")
                         .arg(row)
                         .arg(column)
                         .arg(describeWidget(m_view)));
}

void ItemInput::set(int row, int column, const QVariant& value) {
  if (editorOf(m_view)) { // a click elsewhere ends the edit that is open
    m_view->setFocus(Qt::MouseFocusReason);
    InputPlayer::settle();
  }
  const QModelIndex cell = index(row, column);
  if (QWidget* inCell = m_view->indexWidget(cell)) {
    m_view->scrollTo(cell);
    InputPlayer::settle();
    QWidget* widget = valueWidget(inCell);
    requireUsable(widget);
    setWidget(widget, value);
  } else if (value.type() == QVariant::Bool) {
    check(row, column, value.toBool());
  } else {
    edit(row, column, typedText(value));
  }
}

/// The first cell of a row that a click can select by.
QModelIndex ItemInput::clickableCell(const QModelIndex& row) const {
  for (int column = 0; column < columns(); ++column) {
    const QModelIndex cell = columns() == 1 ? row : row.sibling(row.row(), column);
    if (!isHidden(cell) && !m_view->indexWidget(cell))
      return cell;
  }
  throw DriveError(QStringLiteral("row %1 of %2 has no cell to click")
                       .arg(rowOf(row))
                       .arg(describeWidget(m_view)));
}

QModelIndexList ItemInput::chosenCells(const QVariantList& rows, bool* areCells) const {
  QModelIndexList cells;
  *areCells = false;
  for (const QVariant& row : rows) {
    const bool isCell = row.type() == QVariant::List;
    const QVariantList place = row.toList();
    if (isCell && place.size() != 2)
      throw DriveError(QStringLiteral("a cell is given as [row, column]"));
    *areCells |= isCell;
    const QModelIndex cell = isCell ? index(rowOf(place.at(0)), toIndex(place.at(1)))
                                    : clickableCell(index(rowOf(row), 0));
    if (!cells.contains(cell)) // a second click would take it back
      cells.append(cell);
  }
  return cells;
}

/// Cells in a form that compares: rows stand for their first cell, in order, each once.
std::vector<QModelIndex> ItemInput::comparable(const QModelIndexList& cells, bool areCells) const {
  std::vector<QModelIndex> keys;
  for (const QModelIndex& cell : cells)
    keys.push_back(areCells || columns() == 1 ? cell : cell.sibling(cell.row(), 0));
  std::sort(keys.begin(), keys.end());
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  return keys;
}

void ItemInput::choose(const QVariantList& rows) {
  bool areCells = false;
  const QModelIndexList wanted = chosenCells(rows, &areCells);
  const auto mode = m_view->selectionMode();
  const QItemSelectionModel* selection = m_view->selectionModel();
  const auto* table = qobject_cast<QTableView*>(m_view.data());
  const bool byHeader = table && !areCells && table->verticalHeader()->isVisible() &&
                        table->selectionBehavior() == QAbstractItemView::SelectItems &&
                        table->verticalHeader()->sectionsClickable();
  const auto clickCell = [&](const QModelIndex& cell, Qt::KeyboardModifiers modifiers) {
    if (!byHeader) {
      clickIndex(cell, false, modifiers);
      return;
    }
    QHeaderView* header = table->verticalHeader();
    m_view->scrollTo(cell);
    InputPlayer::settle();
    const QRect section(0, header->sectionViewportPosition(cell.row()), header->width(),
                        header->sectionSize(cell.row()));
    InputPlayer::clickAt(header->viewport(), section & header->viewport()->rect(), false,
                         modifiers);
    requireView();
  };
  const bool toggles = mode == QAbstractItemView::MultiSelection;
  if (toggles || wanted.isEmpty()) {
    // where nothing is wanted, what is selected may be cells as well as rows
    const bool byCells = areCells || (wanted.isEmpty() && m_view->selectionBehavior() ==
                                                              QAbstractItemView::SelectItems);
    const auto keys = comparable(wanted, byCells);
    for (const QModelIndex& cell : comparable(selection->selectedIndexes(), byCells)) {
      const auto modifier = toggles ? Qt::NoModifier : Qt::ControlModifier;
      if (std::binary_search(keys.begin(), keys.end(), cell) ||
          (byCells && !selection->isSelected(cell))) // it went with its row
        continue;
      if (byCells && !(byHeader && selection->isRowSelected(cell.row(), cell.parent())))
        clickIndex(cell, false, modifier);
      else
        clickCell(areCells ? cell : clickableCell(cell), modifier);
    }
  }
  for (int i = 0; i < wanted.size(); ++i) {
    if ((toggles || i > 0) && selection->isSelected(wanted.at(i)))
      continue; // a click would take it back
    clickCell(wanted.at(i), i > 0 && !toggles ? Qt::ControlModifier : Qt::NoModifier);
  }
  const auto selected = comparable(selection->selectedIndexes(), areCells);
  if (selected != comparable(wanted, areCells))
    throw DriveError(QStringLiteral("%1 does not take these %2 as its selection; %3 are selected")
                         .arg(describeWidget(m_view))
                         .arg(wanted.size())
                         .arg(selected.size()));
}
