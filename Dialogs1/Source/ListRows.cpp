#include "ListRows.h"

#include "HostSupportQt/Text.h"

#include <QApplication>
#include <QListWidget>

#include <algorithm>
#include <vector>

namespace {

// Measuring a text costs more than all else that is done for a row, so only the longest are.
constexpr std::size_t measuredTexts = 50;

class RowDelegate : public OneLineDelegate {
public:
  using OneLineDelegate::OneLineDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text = widest;
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    return style->sizeFromContents(QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
  }

  QString widest;
};

QString widestText(const QListWidget* list, const RowDelegate* delegate) {
  std::vector<std::pair<int, int>> lengths; // and rows
  lengths.reserve(static_cast<std::size_t>(list->count()));
  for (int row = 0; row < list->count(); ++row)
    lengths.emplace_back(-list->item(row)->text().size(), row);
  const auto end = lengths.begin() + static_cast<int>(std::min(lengths.size(), measuredTexts));
  std::nth_element(lengths.begin(), end, lengths.end());

  const QFontMetrics metrics(list->font());
  QString widest;
  int width = -1;
  for (auto entry = lengths.begin(); entry != end; ++entry) {
    const QString text = delegate->displayText(list->item(entry->second)->text(), QLocale::c());
    const int advance = metrics.horizontalAdvance(text);
    if (advance > width) {
      width = advance;
      widest = text;
    }
  }
  return widest;
}

} // namespace

QString OneLineDelegate::displayText(const QVariant& value, const QLocale&) const {
  return rowText(value.toString());
}

void makeRowsUniform(QListWidget* list) {
  auto* delegate = dynamic_cast<RowDelegate*>(list->itemDelegate());
  if (!delegate) {
    delegate = new RowDelegate(list);
    list->setItemDelegate(delegate);
    list->setUniformItemSizes(true);
  }
  delegate->widest = widestText(list, delegate);
}

RowBlocks selectedRows(const QAbstractItemView* view) {
  RowBlocks rows;
  for (const QItemSelectionRange& range : view->selectionModel()->selection())
    rows.push_back({range.top(), range.bottom()});
  return rows;
}

static QItemSelectionRange wholeRows(const QAbstractItemModel* model, int first, int last) {
  return {model->index(first, 0), model->index(last, model->columnCount() - 1)};
}

void selectRows(QAbstractItemView* view, const RowBlocks& rows) {
  QItemSelection selection;
  for (const RowBlock& block : rows)
    selection.append(wholeRows(view->model(), block.first, block.last));
  view->selectionModel()->select(selection, QItemSelectionModel::Select);
}

void RowSelectionModel::select(const QItemSelection& selection, SelectionFlags command) {
  QItemSelection rows;
  for (const QItemSelectionRange& range : selection)
    if (range.isValid())
      rows.append(wholeRows(model(), range.top(), range.bottom()));
  QItemSelectionModel::select(rows, command & ~SelectionFlags(Rows));
}
