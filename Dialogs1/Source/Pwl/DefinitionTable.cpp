#include "Pwl/DefinitionTable.h"

#include "Pwl/PWLTableItems.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <numeric>

namespace {

constexpr int fileColumn = 2;
constexpr int measuredRows = 64;
constexpr int widestTime = 30; // characters

template <class Item> bool isA(const QTableWidgetItem* item) {
  return dynamic_cast<const Item*>(item);
}

} // namespace

DefinitionTable::DefinitionTable(QWidget* parent) : PointTable(parent) {
  setColumnCount(fileColumn + 1);
  horizontalHeader()->setResizeContentsPrecision(measuredRows);
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
    // With Ctrl or Shift held the user selects.
    if (isA<ToolButtonPWLTableItem>(item(row, column)) &&
        QGuiApplication::keyboardModifiers() == Qt::NoModifier)
      emit fileWanted(row);
  });
}

void DefinitionTable::setLines(const LineStore& lines, const SyntaxMessages& messages) {
  setRowCount(0);
  m_lines = lines;
  setRowCount(lines.size());
  std::iota(m_lineOfRow.begin(), m_lineOfRow.end(), 0);
  for (const SyntaxMessage& message : messages.all()) {
    const int line = message.lineNumber.toInt();
    if (line > 0 && line <= rowCount())
      setRowAtFault(line - 1, *messages.atLine(line));
  }
  for (int row = 0; row < std::min(rowCount(), measuredRows); ++row)
    touchRow(row);
  fitColumns();
}

void DefinitionTable::fitColumns() {
  // The start data line takes its whole row; it and long comments do not push the values away.
  const int row = startDataRow();
  clearSpans();
  if (row >= 0)
    setSpan(row, 0, 1, columnCount());
  resizeColumnsToContents();
  setColumnWidth(0, std::min(columnWidth(0), widestTime * fontMetrics().averageCharWidth()));
}

QString DefinitionTable::textAt(int row, int column) const {
  if (!isPending(row))
    return PointTable::textAt(row, column);
  const PointsLine line = readPointsLine(m_lines.at(m_lineOfRow.at(row)));
  return column == 0 ? line.first : line.second;
}

PointsLineKind DefinitionTable::kindAt(int row) const {
  if (isPending(row))
    return kindOfPointsLine(m_lines.at(m_lineOfRow.at(row)));
  if (isA<CommentPWLTableItem>(item(row, 0)))
    return PointsLineKind::Comment;
  return isA<StartDataPWLTableItem>(item(row, 0)) ? PointsLineKind::StartData
                                                  : PointsLineKind::Data;
}

bool DefinitionTable::isDataPoint(int row) const {
  return kindAt(row) == PointsLineKind::Data && isFilled(row);
}

int DefinitionTable::countDataPoints(int most) const {
  int count = 0;
  for (int row = 0; row < rowCount() && count < most; ++row)
    count += isDataPoint(row);
  return count;
}

int DefinitionTable::rowsInUse() const {
  int row = rowCount();
  while (row > 0 && kindAt(row - 1) != PointsLineKind::Comment && !isFilled(row - 1))
    --row;
  return row;
}

int DefinitionTable::startDataRow() const {
  for (int row = 0; row < rowCount(); ++row)
    if (kindAt(row) == PointsLineKind::StartData ||
        (isA<ErrorPWLTableItem>(item(row, 0)) &&
         item(row, 0)->text().startsWith(QLatin1String("START_DATA"))))
      return row;
  return -1;
}

QByteArray DefinitionTable::lineAt(int row, const QString& separator) const {
  PointsLine line;
  if (isPending(row)) {
    const std::string_view bytes = m_lines.at(m_lineOfRow.at(row));
    line = readPointsLine(bytes);
    // Byte for byte: a comment may be in any encoding.
    if (line.kind == PointsLineKind::Comment)
      return {bytes.data(), static_cast<int>(bytes.size())};
  } else {
    line = {kindAt(row), textAt(row, 0), textAt(row, 1)};
  }
  if (line.kind == PointsLineKind::StartData || line.first.isEmpty())
    return line.first.toUtf8();
  if (line.kind == PointsLineKind::Data)
    line.first += separator;
  return (line.first + line.second).toUtf8();
}

void DefinitionTable::setStartData(const QString& line) {
  const int row = startDataRow();
  if (row < 0)
    return;
  touchRow(row);
  const QSignalBlocker quiet(this);
  setItem(row, 0, new StartDataPWLTableItem(line));
}

void DefinitionTable::setDataRow(int row, const PwlPoint& point) {
  setItem(row, 0, new PWLTableItem(point.x));
  setItem(row, 1, new PWLTableItem(point.y));
  setItem(row, fileColumn, new ToolButtonPWLTableItem);
}

void DefinitionTable::setCommentRow(int row, const QString& first, const QString& second) {
  setItem(row, 0, new CommentPWLTableItem(first));
  setItem(row, 1, new CommentPWLTableItem(second));
  delete takeItem(row, fileColumn);
}

void DefinitionTable::setRowAtFault(int row, const SyntaxMessage& message) {
  const std::string_view line = m_lines.at(row);
  const QSignalBlocker quiet(this);
  m_lineOfRow[row] = -1;
  const QString toolTip = toolTipOf(message);
  if (kindOfPointsLine(line) == PointsLineKind::StartData) {
    setItem(row, 0, new ErrorPWLTableItem(textOf(line).trimmed(), toolTip));
    return;
  }
  const PwlPoint fields = fieldsOfPointsLine(line);
  setItem(row, 0, new ErrorPWLTableItem(fields.x, toolTip));
  setItem(row, 1, new ErrorPWLTableItem(fields.y, toolTip));
}

void DefinitionTable::adaptRow(int row) {
  QTableWidgetItem* first = item(row, 0);
  if (!first || !item(row, 1))
    return;
  const QString text = first->text().simplified();
  const QString value = item(row, 1)->text();
  const bool isComment = isA<CommentPWLTableItem>(first);
  const bool isAtFault = isA<ErrorPWLTableItem>(first);
  const bool isStarred = text.startsWith(QLatin1Char('*'));
  if (!isComment && !isAtFault && !isA<PWLTableItem>(first))
    return;
  if (isStarred == isComment && !isAtFault)
    return;
  if (isStarred)
    setCommentRow(row, text, value);
  else
    setDataRow(row, {text, value});
  fitColumns();
}

void DefinitionTable::touchRow(int row) {
  if (!isPending(row))
    return;
  const PointsLine line = readPointsLine(m_lines.at(m_lineOfRow.at(row)));
  m_lineOfRow[row] = -1;
  // Not a change: what is shown now was there before.
  const QSignalBlocker quiet(this);
  switch (line.kind) {
  case PointsLineKind::Comment:
    setCommentRow(row, line.first, line.second);
    break;
  case PointsLineKind::StartData:
    setItem(row, 0, new StartDataPWLTableItem(line.first));
    setItem(row, 1, new PWLTableItem);
    break;
  case PointsLineKind::Data:
    setDataRow(row, {line.first, line.second});
    break;
  }
}

void DefinitionTable::fillRow(int row) {
  const QSignalBlocker quiet(this);
  setDataRow(row, {});
}

bool DefinitionTable::mayInsert(int rows) const {
  // Looks at the lines only where the number of rows leaves a doubt.
  return PointTable::mayInsert(rows) || countDataPoints() + rows <= limits.most;
}

bool DefinitionTable::mayDelete() const {
  return countDataPoints(limits.least + 1) > limits.least;
}

bool DefinitionTable::isRemovable(int first, int count) const {
  const int start = startDataRow();
  return start < first || start >= first + count;
}

bool DefinitionTable::hasCell(int row, int column) const {
  if (!isPending(row))
    return PointTable::hasCell(row, column);
  return column < fileColumn || kindAt(row) == PointsLineKind::Data;
}

void DefinitionTable::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Space || event->key() == Qt::Key_F2;
  if (opens && isA<ToolButtonPWLTableItem>(currentItem()))
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

void DefinitionTable::rowsInserted(const QModelIndex& parent, int start, int end) {
  m_lineOfRow.insert(start, end - start + 1, -1);
  PointTable::rowsInserted(parent, start, end);
}

void DefinitionTable::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
  m_lineOfRow.remove(start, end - start + 1);
  PointTable::rowsAboutToBeRemoved(parent, start, end);
}
