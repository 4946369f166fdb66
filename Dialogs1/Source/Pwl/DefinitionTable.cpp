#include "Pwl/DefinitionTable.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int fileColumn = 2;
constexpr int measuredRows = 64;
constexpr int widestTime = 30; // characters

} // namespace

DefinitionTable::DefinitionTable(QWidget* parent) : PointTable(parent, PointRows::Counted::Points) {
  setColumnCount(fileColumn + 1);
  horizontalHeader()->setResizeContentsPrecision(measuredRows);
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
    // With Ctrl or Shift held the user selects.
    if (isFileCell(row, column) && QGuiApplication::keyboardModifiers() == Qt::NoModifier)
      emit fileWanted(row);
  });
}

bool DefinitionTable::isFileCell(int row, int column) const {
  return column == fileColumn && m_rows.hasCell(row, column);
}

void DefinitionTable::setLines(const LineStore& lines, const SyntaxMessages& messages) {
  if (messages.all().isEmpty() && m_rows.readAs(lines))
    return;
  setRowCount(0);
  setRowCount(lines.size());
  m_rows.setLines(lines, messages);
  wantFit();
}

void DefinitionTable::fitColumns() {
  m_wantsFit = false;
  const int top = std::max(rowAt(0), 0);
  for (int seen = top; seen < std::min(rowCount(), top + measuredRows); ++seen)
    touchRow(seen);
  // The start data line takes its whole row; it and long comments do not push the values away.
  const int row = m_rows.startDataRow();
  clearSpans();
  if (row >= 0)
    setSpan(row, 0, 1, columnCount());
  resizeColumnToContents(fileColumn);
  resizeColumnToContents(0);
  setColumnWidth(0, std::min(columnWidth(0), widestTime * fontMetrics().averageCharWidth()));
}

void DefinitionTable::setStartData(const QString& line) {
  const int row = m_rows.startDataRow();
  const PointRow now = m_rows.at(row);
  if (row >= 0 && (now.x != line || !now.fault.isEmpty()))
    setRow(row, {PointRow::Kind::StartData, line, m_rows.at(row).y, QString()});
}

void DefinitionTable::adaptRow(int row) {
  if (!m_rows.adapt(row))
    return;
  showRow(row);
  wantFit();
}

void DefinitionTable::touchRow(int row) {
  if (row >= 0 && !isShown(row))
    showRow(row);
}

void DefinitionTable::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Space || event->key() == Qt::Key_F2;
  if (opens && isFileCell(currentRow(), currentColumn()))
    emit fileWanted(currentRow());
  else
    PointTable::keyPressEvent(event);
}

bool DefinitionTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  // Nothing in the third column goes into the file.
  return index.column() < fileColumn && PointTable::edit(index, trigger, event);
}

void DefinitionTable::paintEvent(QPaintEvent* event) {
  const int first = rowAt(0);
  const int last = rowAt(viewport()->height() - 1);
  if (first >= 0)
    for (int row = first; row <= (last < 0 ? rowCount() - 1 : last); ++row)
      touchRow(row);
  PointTable::paintEvent(event);
}

void DefinitionTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  touchRow(current.row());
  PointTable::currentChanged(current, previous);
}

void DefinitionTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  touchRow(index.row());
  PointTable::scrollTo(index, hint);
}
