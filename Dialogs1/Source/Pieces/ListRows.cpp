#include "Pieces/ListRows.h"

#include "HostSupportQt/Text.h"

#include <QApplication>
#include <QHeaderView>
#include <QListWidget>
#include <QScreen>
#include <QTreeWidget>

#include <algorithm>
#include <vector>

namespace {

// Measuring a text costs more than all else that is done for a row, so only the longest are.
constexpr std::size_t measuredTexts = 50;
constexpr int widestColumn = 40; // characters; the next one is to be seen, too

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

QString widestText(const QAbstractItemView* view, const RowDelegate* delegate, int column) {
  const QAbstractItemModel* model = view->model();
  const auto textOf = [=](int row) { return model->index(row, column).data().toString(); };
  const int count = model->rowCount();
  std::vector<std::pair<int, int>> lengths; // and rows
  lengths.reserve(static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    lengths.emplace_back(-textOf(row).size(), row);
  const auto end = lengths.begin() + static_cast<int>(std::min(lengths.size(), measuredTexts));
  std::nth_element(lengths.begin(), end, lengths.end());

  const QFontMetrics metrics(view->font());
  QString widest;
  int width = -1;
  for (auto entry = lengths.begin(); entry != end; ++entry) {
    const QString text = delegate->displayText(textOf(entry->second), QLocale::c());
    const int advance = metrics.horizontalAdvance(text);
    if (advance > width) {
      width = advance;
      widest = text;
    }
  }
  return widest;
}

/// The delegate of a view, made where it has none yet.
RowDelegate* rowDelegate(QAbstractItemView* view) {
  auto* delegate = dynamic_cast<RowDelegate*>(view->itemDelegate());
  if (!delegate) {
    delegate = new RowDelegate(view);
    view->setItemDelegate(delegate);
  }
  return delegate;
}

} // namespace

QString OneLineDelegate::displayText(const QVariant& value, const QLocale&) const {
  return rowText(value.toString());
}

void makeRowsUniform(QListWidget* list) {
  RowDelegate* delegate = rowDelegate(list);
  list->setUniformItemSizes(true);
  delegate->widest = widestText(list, delegate, 0);
}

void makeRowsUniform(QTreeWidget* tree) {
  RowDelegate* delegate = rowDelegate(tree);
  tree->setUniformRowHeights(true);
  const int limit = widestColumn * tree->fontMetrics().averageCharWidth();
  QStyleOptionViewItem option;
  option.initFrom(tree);
  option.widget = tree;
  for (int column = 0; column < tree->columnCount(); ++column) {
    delegate->widest = widestText(tree, delegate, column);
    const int wanted = delegate->sizeHint(option, tree->model()->index(0, column)).width();
    tree->setColumnWidth(
        column, std::max(std::min(wanted, limit), tree->header()->sectionSizeHint(column)));
  }
}

void resizeToContents(QWidget* window) {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    const QSize room = screen->availableSize();
    window->resize(window->sizeHint().boundedTo({room.width(), room.height() * 2 / 3}));
  }
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
