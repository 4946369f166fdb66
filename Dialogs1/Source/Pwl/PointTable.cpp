#include "Pwl/PointTable.h"

#include "Core/Pieces/CellBlock.h"
#include "HostSupportQt/Text.h"
#include "Pwl/PWLTableItems.h"
#include "Pwl/PointDelegate.h"
#include "Pwl/PointNotes.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int pointColumns = 2;
constexpr int fewRows = 6;
constexpr int rowsAtFirst = 11;
constexpr int longestNote = 500; // characters

PointRow rowOf(const PwlPoint& point, PointRow::Kind kind = PointRow::Kind::Point) {
  return {kind, point.x, point.y, QString()};
}

QTableWidgetItem* newItem(const PointRow& row, int column) {
  const QString& text = row.text(column);
  if (column >= pointColumns)
    return new ToolButtonPWLTableItem;
  if (!row.fault.isEmpty())
    return new ErrorPWLTableItem(text, row.fault);
  switch (row.kind) {
  case PointRow::Kind::Computed:
    return new QTableWidgetItem(text);
  case PointRow::Kind::Origin:
    return new DisabledPWLTableItem;
  case PointRow::Kind::Comment:
    return new CommentPWLTableItem(text);
  case PointRow::Kind::StartData:
    if (column == 0)
      return new StartDataPWLTableItem(text);
    break;
  case PointRow::Kind::Point:
    break;
  }
  return new PWLTableItem(text);
}

/// The first of two columns, which want to be so wide: half of the width, or more where its text
/// wants more and the other can spare it, or less where the other's does.
int firstOfTwo(int width, int wanted, int wantedByOther) {
  const int half = width / 2;
  return wanted > half ? std::min(wanted, std::max(half, width - wantedByOther))
                       : std::max(wanted, std::min(half, width - wantedByOther));
}

QList<QKeySequence> redoKeys() {
  return {Qt::CTRL + Qt::SHIFT + Qt::Key_Z, Qt::CTRL + Qt::Key_Y};
}

/// Whether a key is one of the row operations'.
bool isRowKey(const QKeyEvent& event) {
  static constexpr int plain[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Insert, Qt::Key_Delete};
  const int pressed = int(event.modifiers() & ~Qt::KeypadModifier) + event.key();
  return std::find(std::begin(plain), std::end(plain), pressed) != std::end(plain) ||
         event.matches(QKeySequence::Undo) || redoKeys().contains(QKeySequence(pressed));
}

} // namespace

PointTable::PointTable(QWidget* parent, PointRows::Counted counted)
    : QTableWidget(parent), m_rows(counted),
      m_history(&m_rows, [this](const PointRows::Change& change, bool isUndone, int mode) {
        restore(change, isUndone, mode);
      }) {
  setItemDelegate(new PointDelegate(this, [this](int row, const QString& text) {
    return row < m_partRows && countsAsTyped(text);
  }));
  setColumnCount(pointColumns);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  QHeaderView* numbers = verticalHeader();
  numbers->setDefaultSectionSize(numbers->fontMetrics().height() * 3 / 2);
  numbers->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  horizontalHeader()->setResizeContentsPrecision(0); // of rows in sight
  connect(model(), &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex&, int first, int last) {
            if (!m_isRestoring)
              m_rows.insert(first, last - first + 1);
          });
  connect(model(), &QAbstractItemModel::rowsRemoved, this,
          [this](const QModelIndex&, int first, int last) {
            if (!m_isRestoring)
              m_rows.remove(first, last - first + 1);
          });
  connect(this, &QTableWidget::cellChanged, this, [this](int row, int column) {
    if (column < pointColumns)
      m_rows.setText(row, column, item(row, column)->text());
  });
}

void PointTable::showEvent(QShowEvent* event) {
  QTableWidget::showEvent(event);
  fitColumns(); // now that there is a width
}

int PointTable::heightOf(int rows) const {
  return horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() +
         2 * frameWidth();
}

QSize PointTable::minimumSizeHint() const {
  return {QTableWidget::minimumSizeHint().width(), heightOf(fewRows)};
}

QSize PointTable::sizeHint() const {
  return {QTableWidget::sizeHint().width(), heightOf(rowsAtFirst)};
}

void PointTable::setLimits(int least, int most) {
  limits.least = least;
  limits.most = most;
}

void PointTable::addRowActions(QWidget* owner) {
  struct Operation {
    QString caption;
    QList<QKeySequence> keys;
    void (PointTable::*slot)();
  };
  const Operation operations[] = {
      {tr("Insert Rows"), {Qt::Key_Insert}, &PointTable::insertRows},
      {tr("Delete Rows"), {Qt::Key_Delete}, &PointTable::deleteRows},
      {tr("Next Cell"), {Qt::Key_Return, Qt::Key_Enter}, &PointTable::nextCell},
  };
  for (const Operation& operation : operations) {
    auto* action = new QAction(operation.caption, owner);
    connect(action, &QAction::triggered, this, operation.slot);
    addAction(owner, action, operation.keys);
  }
  m_isExtended = true;
  addStepActions(owner);
}

void PointTable::addStepActions(QWidget* owner) {
  addAction(owner, historyAction(owner, tr("Undo"), &PointHistory::undo), {QKeySequence::Undo});
  addAction(owner, historyAction(owner, tr("Redo"), &PointHistory::redo), redoKeys());
  owner->setContextMenuPolicy(Qt::ActionsContextMenu);
  owner->installEventFilter(this);
}

void PointTable::addAction(QWidget* owner, QAction* action, const QList<QKeySequence>& keys) {
  action->setShortcuts(keys);
  if (owner == this)
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  owner->addAction(action);
}

QAction* PointTable::historyAction(QWidget* owner, const QString& caption,
                                   void (PointHistory::*go)()) {
  auto* action = new QAction(caption, owner);
  connect(action, &QAction::triggered, this, [this, go] {
    commitOpenCell();
    (m_history.*go)();
  });
  return action;
}

bool PointTable::eventFilter(QObject* watched, QEvent* event) {
  // Keys that the focus widget has not claimed come by here before they become shortcuts.
  if (event->type() == QEvent::ShortcutOverride && !hasFocus() &&
      !isAncestorOf(QApplication::focusWidget()) && isRowKey(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QTableWidget::eventFilter(watched, event);
}

void PointTable::setPoints(const PwlPoints& points, int blankRows, PointRow::Kind kind) {
  wantFit();
  setRowCount(points.size() + blankRows);
  for (int row = 0; row < rowCount(); ++row)
    setRow(row, row < points.size() ? rowOf(points.at(row), kind) : PointRow());
}

void PointTable::overwritePoints(const PwlPoints& points) {
  wantFit();
  setRowCount(points.size() + 1);
  for (int row = 0; row < points.size(); ++row)
    setRow(row, rowOf(points.at(row)));
  showRow(points.size());
}

void PointTable::setRow(int row, const PointRow& value) {
  m_rows.set(row, value);
  showRow(row);
}

void PointTable::showRow(int row) {
  const PointRow shown = m_rows.at(row);
  const QSignalBlocker quiet(this); // nobody has typed anything
  for (int column = 0; column < columnCount(); ++column)
    if (shown.hasCell(column))
      setItem(row, column, newItem(shown, column));
    else
      delete takeItem(row, column);
}

void PointTable::setText(int row, int column, const QString& text) {
  step(tr("Edit"), [&] {
    if (!isShown(row))
      showRow(row);
    item(row, column)->setText(text);
  });
}

PointTable::Selected PointTable::selectedCells() const {
  Selected found;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      for (int column = range.left(); column <= range.right(); ++column) {
        if (!m_rows.isSelectable(row, column))
          continue;
        if (found.cells++ == 0)
          found = {1, row, row, row};
        found.top = std::min(found.top, row);
        found.bottom = std::max(found.bottom, row);
      }
  return found;
}

void PointTable::showTooMany() {
  QMessageBox::warning(window(), tr("Too many points"), limits.tooMany.arg(limits.most));
}

void PointTable::insertRows() {
  commitOpenCell();
  const int currentAtRow = currentRow();
  const int currentAtColumn = currentColumn();
  const Selected selected = selectedCells();
  int first = selected.cells > 0 ? selected.top : currentAtRow < 0 ? rowCount() : currentAtRow;
  if (m_rows.at(first).kind == PointRow::Kind::Origin)
    ++first; // which stays the first
  const int count = selected.bottom - selected.top + 1;
  if (!m_rows.mayInsert(count, limits.most)) {
    showTooMany();
    return;
  }
  step(tr("Insert Rows"), [&] {
    // All at once: the header looks at every row below each time that rows come in.
    model()->insertRows(first, count);
    for (int row = first; row < first + count; ++row)
      showRow(row);
  });
  clearSelection();
  if (selected.cells > 0)
    setRangeSelected({first, 0, first + count - 1, columnCount() - 1}, true);
  setCurrentCell(std::max(currentAtRow, 0), std::max(currentAtColumn, 0),
                 QItemSelectionModel::NoUpdate);
  emit rowsChanged();
}

void PointTable::deleteRows() {
  commitOpenCell();
  const int currentAtRow = currentRow();
  const int currentAtColumn = currentColumn();
  if (!m_rows.at(currentAtRow).isBlank() && !m_rows.mayDelete(limits.least)) {
    QMessageBox::warning(window(), limits.tooFewTitle, limits.tooFew.arg(limits.least));
    return;
  }
  // A row for each cell: who selects both cells of a row takes the one below as well.
  const Selected selected = selectedCells();
  const int count = std::min(selected.cells, rowCount() - selected.first);
  if (count == 0 || !m_rows.isRemovable(selected.first, count))
    return;
  step(tr("Delete Rows"), [&] { model()->removeRows(selected.first, count); });
  setCurrentCell(std::min(currentAtRow, rowCount() - 1), currentAtColumn);
  emit rowsChanged();
}

void PointTable::nextCell() {
  // Nothing can be typed in the origin.
  const bool atRowEnd =
      currentColumn() != 0 || m_rows.at(currentRow()).kind == PointRow::Kind::Origin;
  const bool isFull = rowCount() >= limits.most;
  if (atRowEnd && isFull) {
    showTooMany();
    return;
  }
  int row = currentRow() + (atRowEnd ? 1 : 0);
  if (m_rows.at(row).kind == PointRow::Kind::Origin)
    ++row;
  if (atRowEnd)
    setCurrentCell(currentRow(), 0);
  if (row == rowCount())
    addRow();
  setCurrentCell(row, atRowEnd ? 0 : 1);
}

void PointTable::addRow() {
  step(tr("New Row"), [this] {
    insertRow(rowCount());
    showRow(rowCount() - 1);
  });
}

void PointTable::goOn(int step) {
  int row = currentRow();
  int column = currentColumn();
  do {
    column += step;
    row += column < 0 ? -1 : column >= pointColumns ? 1 : 0;
    column = (column + pointColumns) % pointColumns;
  } while (row >= 0 && row < rowCount() && !m_rows.at(row).isEditable(column));
  if (row < 0)
    return;
  if (row == rowCount()) {
    if (!m_isExtended)
      return;
    if (!m_rows.mayInsert(1, limits.most)) {
      showTooMany();
      return;
    }
    addRow();
  }
  setCurrentCell(row, column);
  edit(currentIndex());
}

void PointTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  // Qt itself would go from the last cell to the first, and complain of one that opens no editor.
  const bool isNext = hint == QAbstractItemDelegate::EditNextItem;
  const bool goesOn = isNext || hint == QAbstractItemDelegate::EditPreviousItem;
  QTableWidget::closeEditor(editor, goesOn ? QAbstractItemDelegate::NoHint : hint);
  if (goesOn)
    goOn(isNext ? 1 : -1);
}

void PointTable::commitData(QWidget* editor) {
  step(tr("Edit"), [&] { QTableWidget::commitData(editor); });
}

void PointTable::commitOpenCell() {
  QWidget* const editor = state() == EditingState ? viewport()->focusWidget() : nullptr;
  if (!editor)
    return;
  commitData(editor);
  closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void PointTable::openWindowFully() {
  const QSize room = window()->screen()->availableSize() * 9 / 10;
  window()->resize(window()->sizeHint().boundedTo(room));
}

void PointTable::startSteps() {
  m_history.clear();
  say(QString());
}

void PointTable::enterFirstCell() {
  int row = 0;
  while (row < rowCount() - 1 && !m_rows.at(row).isEditable(0))
    ++row;
  setCurrentCell(row, 0);
}

void PointTable::step(const QString& text, const std::function<void()>& act) {
  m_history.step(text, m_mode, act);
  if (m_history.isInStep())
    return;
  if (m_wantsFit)
    fitColumns();
  say(QString());
  emit stepMade();
}

void PointTable::wantFit() {
  m_wantsFit = true;
  if (!m_history.isInStep())
    fitColumns();
}

void PointTable::fitColumns() {
  m_wantsFit = false;
  const int width = viewport()->width();
  const auto wanted = [this](int column) {
    return std::max(sizeHintForColumn(column) + 1, horizontalHeader()->sectionSizeHint(column));
  };
  setColumnWidth(0, firstOfTwo(width, wanted(0), wanted(1)));
}

void PointTable::restore(const PointRows::Change& change, bool isUndone, int mode) {
  if (!m_rows.fits(change, isUndone))
    return;
  const int now = isUndone ? change.after.size() : change.before.size();
  const int then = isUndone ? change.before.size() : change.after.size();
  const int end = change.first + std::min(now, then);
  m_isRestoring = true;
  if (then > now)
    model()->insertRows(end, then - now);
  else if (then < now)
    model()->removeRows(end, now - then);
  m_rows.apply(change, isUndone);
  setRowCount(m_rows.count()); // of lines that were loaded, blank rows may have been added
  m_isRestoring = false;
  for (int row = change.first; row < change.first + then; ++row)
    if (showsAll() || isShown(row))
      showRow(row);
  m_mode = mode;
  clearSelection();
  setCurrentCell(std::min(change.first, rowCount() - 1), 0);
  emit stepRestored(mode);
  emit rowsChanged();
  fitColumns();
  say(QString());
  emit stepMade();
}

void PointTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    copySelection();
  else if (event->matches(QKeySequence::Paste))
    pasteCells();
  else
    QTableWidget::keyPressEvent(event);
}

void PointTable::copySelection() const {
  QModelIndexList cells = selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  int lastRow = -1;
  for (const QModelIndex& cell : cells) {
    const PointRow row = m_rows.at(cell.row());
    // A line is copied whole; the buttons of the third column are no data.
    if (cell.column() >= (row.isLine() ? 1 : pointColumns))
      continue;
    if (lastRow >= 0)
      text += cell.row() == lastRow ? QLatin1Char('\t') : QLatin1Char('\n');
    text += row.isLine() ? row.x + row.y : row.text(cell.column());
    lastRow = cell.row();
  }
  if (lastRow >= 0)
    QGuiApplication::clipboard()->setText(text);
}

void PointTable::pasteCells() {
  const CellBlock block = cellsOfBlock(QGuiApplication::clipboard()->text());
  if (!block.decimalComma.isEmpty()) {
    say(PointNotes::decimalComma(block.decimalComma));
    return;
  }
  const int top = std::max(currentRow(), 0);
  const int left = std::max(currentColumn(), 0);
  const int newRows = std::max(top + block.rows.size() - rowCount(), 0);
  if (newRows > 0 && !m_rows.mayInsert(newRows, limits.most)) {
    showTooMany();
    return;
  }
  int pasted = 0;
  step(tr("Paste"), [&] {
    wantFit();
    if (newRows > 0)
      model()->insertRows(rowCount(), newRows);
    for (int row = 0; row < block.rows.size(); ++row)
      pasted += pasteRow(top + row, left, block.rows.at(row));
    if (m_isExtended && !m_rows.at(rowCount() - 1).isBlank() && m_rows.mayInsert(1, limits.most)) {
      insertRow(rowCount());
      showRow(rowCount() - 1);
    }
  });
  say(PointNotes::rowsPasted(block, block.cells() - pasted));
  emit rowsChanged();
}

int PointTable::pasteRow(int row, int left, const QStringList& cells) {
  const bool isComment =
      m_rows.counted() == PointRows::Counted::Points && isCommentCell(cells.value(0));
  if (isComment && m_rows.at(row).isEditable(0)) {
    setText(row, 1, QString());
    left = 0;
  }
  int pasted = 0;
  for (int i = 0; i < cells.size(); ++i)
    if (m_rows.at(row).isEditable(left + i)) {
      setText(row, left + i, cells.at(i));
      ++pasted;
    }
  return pasted;
}

bool PointTable::countsAsTyped(const QString& text) const {
  return !m_numbersOnly || text.isEmpty() || sp_IsEngNumber(text);
}

int PointTable::textsThatCountAsZero() const {
  int texts = 0;
  for (int row = 0; m_numbersOnly && row < m_partRows; ++row)
    texts += !countsAsTyped(m_rows.at(row).x) + !countsAsTyped(m_rows.at(row).y);
  return texts;
}

void PointTable::say(const QString& text) {
  m_said = text;
  updateNote();
}

void PointTable::updateNote() {
  QStringList notes = {m_said, m_rows.at(currentRow()).fault.simplified()};
  if (m_rows.counted() == PointRows::Counted::Rows) {
    m_partRows = m_rows.completeRows();
    if (const int lost = m_rows.filledRowsFrom(m_partRows + 1))
      notes += PointNotes::rowsBehind(m_partRows, lost);
    if (const int zeros = textsThatCountAsZero())
      notes += PointNotes::textsAsZero(zeros);
    viewport()->update();
  }
  notes.removeAll(QString());
  const QString text = notes.join(QLatin1Char(' '));
  emit noted(text.size() > longestNote ? text.left(longestNote - 1) + QChar(0x2026) : text);
}

void PointTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableWidget::currentChanged(current, previous);
  // All else that a note says, and looks at every row for, changes only with the rows.
  if (m_rows.at(current.row()).fault != m_rows.at(previous.row()).fault)
    updateNote();
}
