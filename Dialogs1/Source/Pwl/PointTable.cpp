#include "Pwl/PointTable.h"

#include "Core/Pieces/CellBlock.h"
#include "Pieces/ListRows.h"
#include "Pwl/PWLTableItems.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QSignalBlocker>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int pointColumns = 2;
constexpr int fewRows = 6;
constexpr int leastContrast = 90; // of lightness, in 255ths
constexpr int onDark = 180;       // lightness of a colour that is seen there
constexpr int onLight = 40;

/// Cells have colours of their own, which have to be seen on a dark table as well, and an alignment
/// that says only left.
class PointDelegate : public OneLineDelegate {
public:
  using OneLineDelegate::OneLineDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!(option->displayAlignment & Qt::AlignVertical_Mask))
      option->displayAlignment |= Qt::AlignVCenter;
    const QColor ground = option->backgroundBrush.style() == Qt::NoBrush
                              ? option->palette.color(QPalette::Base)
                              : option->backgroundBrush.color();
    const QColor text = option->palette.color(QPalette::Text);
    const int groundLightness = qGray(ground.rgb());
    if (std::abs(qGray(text.rgb()) - groundLightness) >= leastContrast)
      return;
    const bool isGrey = text.hslHue() < 0;
    option->palette.setColor(QPalette::Text,
                             QColor::fromHsl(isGrey ? 0 : text.hslHue(),
                                             isGrey ? 0 : text.hslSaturation(),
                                             groundLightness < 128 ? onDark : onLight));
  }
};

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

} // namespace

PointTable::PointTable(QWidget* parent, PointRows::Counted counted)
    : QTableWidget(parent), m_rows(counted) {
  setItemDelegate(new PointDelegate(this));
  setColumnCount(pointColumns);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  QHeaderView* numbers = verticalHeader();
  numbers->setDefaultSectionSize(numbers->fontMetrics().height() * 3 / 2);
  numbers->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setStretchLastSection(true);
  connect(
      model(), &QAbstractItemModel::rowsInserted, this,
      [this](const QModelIndex&, int first, int last) { m_rows.insert(first, last - first + 1); });
  connect(
      model(), &QAbstractItemModel::rowsRemoved, this,
      [this](const QModelIndex&, int first, int last) { m_rows.remove(first, last - first + 1); });
  connect(this, &QTableWidget::cellChanged, this, [this](int row, int column) {
    if (column < pointColumns)
      m_rows.setText(row, column, item(row, column)->text());
  });
}

QSize PointTable::minimumSizeHint() const {
  return {QTableWidget::minimumSizeHint().width(),
          horizontalHeader()->sizeHint().height() +
              fewRows * verticalHeader()->defaultSectionSize() + 2 * frameWidth()};
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
    action->setShortcuts(operation.keys);
    if (owner == this)
      action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, operation.slot);
    owner->addAction(action);
  }
  owner->setContextMenuPolicy(Qt::ActionsContextMenu);
  owner->installEventFilter(this);
}

bool PointTable::eventFilter(QObject* watched, QEvent* event) {
  // Keys that the focus widget has not claimed come by here before they become shortcuts.
  if (event->type() == QEvent::ShortcutOverride && !hasFocus() &&
      !isAncestorOf(QApplication::focusWidget())) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Insert ||
        key == Qt::Key_Delete) {
      event->accept();
      return true;
    }
  }
  return QTableWidget::eventFilter(watched, event);
}

void PointTable::setPoints(const PwlPoints& points, int blankRows, PointRow::Kind kind) {
  setRowCount(points.size() + blankRows);
  for (int row = 0; row < rowCount(); ++row)
    setRow(row, row < points.size() ? rowOf(points.at(row), kind) : PointRow());
}

void PointTable::overwritePoints(const PwlPoints& points) {
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
  if (!isShown(row))
    showRow(row);
  item(row, column)->setText(text);
}

int PointTable::selectedCells() const {
  int count = 0;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      for (int column = range.left(); column <= range.right(); ++column)
        count += m_rows.hasCell(row, column);
  return count;
}

void PointTable::showTooMany() {
  QMessageBox::warning(window(), tr("Too many points"), limits.tooMany.arg(limits.most));
}

void PointTable::insertRows() {
  const int currentAtRow = currentRow();
  const int currentAtColumn = currentColumn();
  const QItemSelection selected = selectionModel()->selection();
  int first = currentAtRow < 0 ? rowCount() : currentAtRow;
  int count = 1;
  if (!selected.isEmpty()) {
    first = selected.first().top();
    int last = first;
    for (const QItemSelectionRange& range : selected) {
      first = std::min(first, range.top());
      last = std::max(last, range.bottom());
    }
    count = last - first + 1;
  }
  if (!m_rows.mayInsert(count, limits.most)) {
    showTooMany();
    return;
  }
  // All at once: the header looks at every row below each time that rows come in.
  model()->insertRows(first, count);
  for (int row = first; row < first + count; ++row)
    showRow(row);
  clearSelection();
  if (!selected.isEmpty())
    setRangeSelected({first, 0, first + count - 1, columnCount() - 1}, true);
  setCurrentCell(std::max(currentAtRow, 0), std::max(currentAtColumn, 0),
                 QItemSelectionModel::NoUpdate);
  emit rowsChanged();
}

void PointTable::deleteRows() {
  const int currentAtRow = currentRow();
  const int currentAtColumn = currentColumn();
  if (!m_rows.at(currentAtRow).isBlank() && !m_rows.mayDelete(limits.least)) {
    QMessageBox::warning(window(), limits.tooFewTitle, limits.tooFew.arg(limits.least));
    return;
  }
  const QItemSelection selected = selectionModel()->selection();
  if (selected.isEmpty())
    return;
  // A row for each cell: who selects both cells of a row takes the one below as well.
  const int first = selected.first().top();
  const int count = std::min(selectedCells(), rowCount() - first);
  if (count == 0 || !m_rows.isRemovable(first, count))
    return;
  model()->removeRows(first, count);
  setCurrentCell(std::min(currentAtRow, rowCount() - 1), currentAtColumn);
  emit rowsChanged();
}

void PointTable::nextCell() {
  const bool atRowEnd = currentColumn() != 0;
  const bool isFull = rowCount() >= limits.most;
  if (atRowEnd && isFull) {
    showTooMany();
    return;
  }
  const int row = currentRow() + (atRowEnd ? 1 : 0);
  if (atRowEnd)
    setCurrentCell(currentRow(), 0);
  if (row == rowCount()) {
    insertRow(row);
    showRow(row);
  }
  setCurrentCell(row, atRowEnd ? 0 : 1);
}

void PointTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    copySelection();
  else if (event->matches(QKeySequence::Paste))
    pasteCells();
  else
    QTableWidget::keyPressEvent(event);
}

QString PointTable::textOf(const QModelIndex& cell) const {
  const PointRow row = m_rows.at(cell.row());
  if (!row.hasCell(cell.column()))
    return QString();
  return cell.column() < pointColumns ? row.text(cell.column()) : ToolButtonPWLTableItem::caption();
}

void PointTable::copySelection() const {
  QString text;
  QModelIndexList cells = selectedIndexes();
  std::sort(cells.begin(), cells.end());
  for (int i = 0; i < cells.size(); ++i) {
    if (i > 0)
      text += cells.at(i).row() == cells.at(i - 1).row() ? QLatin1Char('\t') : QLatin1Char('\n');
    text += textOf(cells.at(i));
  }
  if (!cells.isEmpty())
    QGuiApplication::clipboard()->setText(text);
}

void PointTable::pasteCells() {
  const QVector<QStringList> block = cellsOfBlock(QGuiApplication::clipboard()->text());
  const int top = std::max(currentRow(), 0);
  const int left = std::max(currentColumn(), 0);
  const int newRows = std::max(top + block.size() - rowCount(), 0);
  if (newRows > 0 && !m_rows.mayInsert(newRows, limits.most)) {
    showTooMany();
    return;
  }
  if (newRows > 0)
    model()->insertRows(rowCount(), newRows);
  for (int row = 0; row < block.size(); ++row)
    for (int column = 0; column < block.at(row).size(); ++column)
      if (m_rows.at(top + row).isEditable(left + column))
        setText(top + row, left + column, block.at(row).at(column));
  if (newRows > 0)
    emit rowsChanged();
}
