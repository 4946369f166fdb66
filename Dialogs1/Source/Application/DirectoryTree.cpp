#include "Application/DirectoryTree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

DirectoryTree::DirectoryTree(QWidget* parent) : QTreeWidget(parent) {
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setResizeContentsPrecision(0); // measures what is in sight, not a thousand rows
}

void DirectoryTree::scrollTo(const QModelIndex& index, ScrollHint hint) {
  // Qt goes to the start of the column, from where the name of a deep node is not in sight, and
  // moves rows away under the mouse. A name that is in sight stays where it is, another comes in
  // with some of what is below it.
  const int before = horizontalScrollBar()->value();
  QTreeWidget::scrollTo(index, hint);
  horizontalScrollBar()->setValue(before);
  const int width = viewport()->width();
  const int left = visualRect(index).left();
  const int nameWidth = sizeHintForIndex(index).width();
  if (left < 0 || left + nameWidth > width)
    horizontalScrollBar()->setValue(before + left - std::clamp(width - nameWidth, 0, width / 4));
}

void DirectoryTree::reset() {
  widest = 0;
  QTreeWidget::reset();
}

int DirectoryTree::sizeHintForColumn(int column) const {
  // A long name at the lower edge brings the scroll bar that hides it. Were the column to become
  // narrow again, the scroll bar would go, the name would come back, and so on for ever.
  widest = std::max(widest, QTreeWidget::sizeHintForColumn(column));
  return widest;
}

void DirectoryTree::keyPressEvent(QKeyEvent* event) {
  // An asterisk would open all that is below, which has no end where links lead back.
  if (event->key() != Qt::Key_Asterisk)
    QTreeWidget::keyPressEvent(event);
}
