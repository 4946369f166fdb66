#include "Pieces/ColumnsView.h"

#include "Pieces/ListRows.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

static constexpr int rowsWanted = 16;
static constexpr int widthWanted = 60; // characters, as wide as on the average

ColumnsView::ColumnsView(QWidget* parent) : QListView(parent) {
  setItemDelegate(new OneLineDelegate(this));
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(NoEditTriggers);
  measure();
}

void ColumnsView::setWidestTexts(const QStringList& texts) {
  m_widestTexts = texts;
  measure();
  doItemsLayout();
}

void ColumnsView::measure() {
  const auto* delegate = static_cast<OneLineDelegate*>(itemDelegate());
  int width = 12 * fontMetrics().averageCharWidth();
  for (const QString& text : qAsConst(m_widestTexts))
    width = std::max(width, fontMetrics().horizontalAdvance(delegate->displayText(text, locale())));
  const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
  m_cell = {width + 4 * margin, fontMetrics().height() + 2};
}

QSize ColumnsView::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {widthWanted * fontMetrics().averageCharWidth() + margins.left() + margins.right(),
          rowsWanted * m_cell.height() + horizontalScrollBar()->sizeHint().height() +
              margins.top() + margins.bottom()};
}

int ColumnsView::rowCount() const {
  return model() ? model()->rowCount(rootIndex()) : 0;
}

int ColumnsView::rowsPerColumn() const {
  return std::max(1, viewport()->height() / m_cell.height());
}

int ColumnsView::columnWidth() const {
  return std::clamp(m_cell.width(), 1, std::max(1, viewport()->width()));
}

int ColumnsView::columnsInSight() const {
  return std::max(1, viewport()->width() / columnWidth());
}

QRect ColumnsView::rectOf(int row) const {
  const QRect left(row / rowsPerColumn() * columnWidth() - horizontalOffset(),
                   row % rowsPerColumn() * m_cell.height(), columnWidth(), m_cell.height());
  return QStyle::visualRect(layoutDirection(), viewport()->rect(), left);
}

QRect ColumnsView::visualRect(const QModelIndex& index) const {
  return index.isValid() && index.model() == model() ? rectOf(index.row()) : QRect();
}

QModelIndex ColumnsView::indexAt(const QPoint& point) const {
  const QPoint left = QStyle::visualPos(layoutDirection(), viewport()->rect(), point);
  const int line = left.y() / m_cell.height();
  if (left.y() < 0 || line >= rowsPerColumn() || left.x() + horizontalOffset() < 0)
    return {};
  const int row = (left.x() + horizontalOffset()) / columnWidth() * rowsPerColumn() + line;
  return row < rowCount() ? model()->index(row, modelColumn(), rootIndex()) : QModelIndex();
}

std::pair<int, int> ColumnsView::rowsInSight() const {
  const int first = horizontalOffset() / columnWidth();
  const int last = (horizontalOffset() + viewport()->width()) / columnWidth();
  return {std::min(first * rowsPerColumn(), rowCount()),
          std::min((last + 1) * rowsPerColumn(), rowCount())};
}

int ColumnsView::horizontalOffset() const {
  return horizontalScrollBar()->value();
}

void ColumnsView::updateGeometries() {
  const int columns = (rowCount() + rowsPerColumn() - 1) / rowsPerColumn();
  QScrollBar* bar = horizontalScrollBar();
  bar->setSingleStep(columnWidth());
  bar->setPageStep(viewport()->width());
  // At the end the first column in sight is a whole one, too.
  bar->setRange(0, std::max(0, columns - columnsInSight()) * columnWidth());
  QAbstractItemView::updateGeometries();
}

void ColumnsView::doItemsLayout() {
  QAbstractItemView::doItemsLayout(); // there is nothing more to it
}

void ColumnsView::reset() {
  QListView::reset();
  horizontalScrollBar()->setValue(0);
  doItemsLayout();
}

void ColumnsView::resizeEvent(QResizeEvent* event) {
  QAbstractItemView::resizeEvent(event);
  viewport()->update();
}

void ColumnsView::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
    setWidestTexts(m_widestTexts);
}

void ColumnsView::scrollContentsBy(int, int) {
  viewport()->update();
}

void ColumnsView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  if (!index.isValid())
    return;
  const int room = (columnsInSight() - 1) * columnWidth();
  const int left = index.row() / rowsPerColumn() * columnWidth();
  const int seen = left - horizontalOffset();
  if (hint == PositionAtCenter)
    horizontalScrollBar()->setValue(left - room / 2);
  else if (seen < 0 || hint == PositionAtTop)
    horizontalScrollBar()->setValue(left);
  else if (seen > room || hint == PositionAtBottom)
    horizontalScrollBar()->setValue(left - room);
}

void ColumnsView::keyboardSearch(const QString& text) {
  emit typed(text);
}

int ColumnsView::rowFrom(int row, CursorAction action) const {
  const int column = rowsPerColumn();
  const int page = column * columnsInSight();
  const int last = rowCount() - 1;
  // From the last but one column there is a row to go to, if not at this height.
  const auto right = [&](int step) {
    return row / column < last / column ? std::min(row + step, last) : row;
  };
  const auto left = [&](int step) { return row >= step ? row - step : row % column; };
  const bool isMirrored = isRightToLeft();
  switch (action) {
  case MoveUp:
  case MovePrevious:
    return row - 1;
  case MoveDown:
  case MoveNext:
    return row + 1;
  case MoveLeft:
    return isMirrored ? right(column) : left(column);
  case MoveRight:
    return isMirrored ? left(column) : right(column);
  case MoveHome:
    return 0;
  case MoveEnd:
    return last;
  case MovePageUp:
    return left(page);
  case MovePageDown:
    return right(page);
  }
  return row;
}

QModelIndex ColumnsView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
  if (rowCount() == 0)
    return {};
  const int row = currentIndex().isValid() ? rowFrom(currentIndex().row(), action) : 0;
  return model()->index(std::clamp(row, 0, rowCount() - 1), modelColumn(), rootIndex());
}

void ColumnsView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  selectionModel()->select(indexAt(rect.topLeft()), command);
}

QRegion ColumnsView::visualRegionForSelection(const QItemSelection& selection) const {
  const auto [first, end] = rowsInSight();
  QRegion region;
  for (const QItemSelectionRange& range : selection)
    for (int row = std::max(range.top(), first); row <= range.bottom() && row < end; ++row)
      region += rectOf(row);
  return region;
}

void ColumnsView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const QStyleOptionViewItem option = viewOptions();
  const auto [first, end] = rowsInSight();
  for (int row = first; row < end; ++row)
    if (rectOf(row).intersects(event->rect()))
      paintRow(&painter, option, row);
}

void ColumnsView::paintRow(QPainter* painter, const QStyleOptionViewItem& option, int row) const {
  const QModelIndex index = model()->index(row, modelColumn(), rootIndex());
  QStyleOptionViewItem cell = option;
  cell.rect = rectOf(row);
  const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
  cell.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
  cell.state.setFlag(QStyle::State_HasFocus, index == currentIndex() && hasFocus());
  cell.state.setFlag(QStyle::State_MouseOver,
                     viewport()->underMouse() && cell.rect.contains(mouse));
  itemDelegate()->paint(painter, cell, index);
}

bool ColumnsView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip)
    return QListView::viewportEvent(event);
  // What there is no room for is said where the mouse rests on it.
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString text = indexAt(help->pos()).data().toString();
  const bool isCut = fontMetrics().horizontalAdvance(text) > columnWidth();
  QToolTip::showText(help->globalPos(), isCut ? Qt::convertFromPlainText(text) : QString(),
                     viewport());
  return true;
}
