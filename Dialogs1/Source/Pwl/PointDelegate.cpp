#include "Pwl/PointDelegate.h"

#include "HostSupportQt/Colours.h"
#include "Pwl/PWLTableItems.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <utility>

bool PointDelegate::eventFilter(QObject* editor, QEvent* event) {
  const auto* edit = qobject_cast<const QLineEdit*>(editor);
  if (edit && event->type() == QEvent::ShortcutOverride && !edit->isUndoAvailable() &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
    event->ignore();
    return true;
  }
  return OneLineDelegate::eventFilter(editor, event);
}

void PointDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (!(option->displayAlignment & Qt::AlignVertical_Mask))
    option->displayAlignment |= Qt::AlignVCenter;
  const QColor ground = option->backgroundBrush.style() == Qt::NoBrush
                            ? option->palette.color(QPalette::Base)
                            : option->backgroundBrush.color();
  const bool counts = m_counts(index.row(), option->text);
  option->font.setItalic(!counts);
  const auto* points = qobject_cast<const QTableWidget*>(parent());
  if (points && dynamic_cast<const ErrorPWLTableItem*>(points->item(index.row(), index.column()))) {
    option->palette.setColor(QPalette::Text, sp_WrongColour(ground));
    return;
  }
  const QColor text =
      option->palette.color(counts ? QPalette::Normal : QPalette::Disabled, QPalette::Text);
  option->palette.setColor(QPalette::Text, sp_SeenColour(text, ground, sp_readableContrast));
}

void PointDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const auto* table = qobject_cast<const QTableWidget*>(parent());
  const bool isComment =
      table && dynamic_cast<const CommentPWLTableItem*>(table->item(index.row(), 0));
  if (isComment && index.column() < 2 && index.siblingAtColumn(1).data().toString().isEmpty())
    paintComment(painter, option, index, table);
  else
    OneLineDelegate::paint(painter, option, index);
}

void PointDelegate::paintComment(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, const QTableWidget* table) const {
  const QModelIndex first = index.siblingAtColumn(0);
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, first);
  const QString text = std::exchange(cell.text, QString());
  table->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, table);

  // The text runs on over the empty cell beside it; each draws its part.
  const QRect row = table->visualRect(first) | table->visualRect(index.siblingAtColumn(1));
  const int margin = table->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, table) + 1;
  const QRect room = row.adjusted(margin, 0, -margin, 0);
  const bool isSelected = cell.state & QStyle::State_Selected;
  painter->save();
  painter->setClipRect(option.rect);
  painter->setFont(cell.font);
  painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
  painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    cell.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
  painter->restore();
}
