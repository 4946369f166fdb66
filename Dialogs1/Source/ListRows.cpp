#include "ListRows.h"

#include "HostSupportQt/Text.h"

#include <QApplication>
#include <QListWidget>
#include <QStyledItemDelegate>

#include <algorithm>
#include <vector>

namespace {

// Measuring a text costs more than all else that is done for a row, so only the longest are.
constexpr std::size_t measuredTexts = 50;

class RowDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale&) const override {
    return rowText(value.toString());
  }

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

void makeRowsUniform(QListWidget* list) {
  auto* delegate = dynamic_cast<RowDelegate*>(list->itemDelegate());
  if (!delegate) {
    delegate = new RowDelegate(list);
    list->setItemDelegate(delegate);
    list->setUniformItemSizes(true);
  }
  delegate->widest = widestText(list, delegate);
}
