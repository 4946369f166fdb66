#include "Drive/ItemCells.h"

#include "Drive/DriveError.h"
#include "Drive/WidgetFinder.h"
#include "Drive/WidgetValues.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QListView>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTableWidget>
#include <QTreeView>
#include <QTreeWidget>

#include <typeinfo>
#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#include <memory>
#endif

namespace {

template <typename Object> QString classNameOf(const Object& object) {
  const char* name = typeid(object).name();
#if __has_include(<cxxabi.h>)
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> readable(
      abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
  return QString::fromLatin1(status == 0 ? readable.get() : name);
#else
  const QString readable = QString::fromLatin1(name);
  return readable.mid(readable.lastIndexOf(QLatin1Char(' ')) + 1); // "class Name"
#endif
}

/// Class name of the item behind an index; empty where the view's model has no item objects.
QString kindOf(const QAbstractItemView* view, const QModelIndex& index) {
  if (const auto* table = qobject_cast<const QTableWidget*>(view)) {
    const auto* item = table->item(index.row(), index.column());
    return item ? classNameOf(*item) : QString();
  }
  if (const auto* list = qobject_cast<const QListWidget*>(view))
    return classNameOf(*list->item(index.row()));
  if (const auto* tree = qobject_cast<const QTreeWidget*>(view)) {
    const QTreeWidgetItem* item = nullptr;
    QVector<int> path;
    for (QModelIndex at = index.sibling(index.row(), 0); at.isValid(); at = at.parent())
      path.prepend(at.row());
    for (int row : qAsConst(path))
      item = item ? item->child(row) : tree->topLevelItem(row);
    return item ? classNameOf(*item) : QString();
  }
  return QString();
}

QString colourOf(const QVariant& role, const QColor& byDefault) {
  const auto brush = role.value<QBrush>();
  const bool isSet = role.isValid() && brush.style() != Qt::NoBrush;
  return (isSet ? brush.color() : byDefault).name();
}

} // namespace

ItemCells::ItemCells(QAbstractItemView* view) : m_view(view) {}

ItemCells ItemCells::of(QWidget* widget) {
  auto* view = qobject_cast<QAbstractItemView*>(widget);
  if (!view || !view->model())
    throw DriveError(QStringLiteral("%1 is not a list, tree or table").arg(describeWidget(widget)));
  return ItemCells(view);
}

QVector<QModelIndex> ItemCells::rowIndexes() const {
  const QAbstractItemModel* model = m_view->model();
  QVector<QModelIndex> found;
  if (!qobject_cast<QTreeView*>(m_view.data())) {
    const auto* list = qobject_cast<QListView*>(m_view.data());
    for (int row = 0; row < model->rowCount(m_view->rootIndex()); ++row)
      found.append(model->index(row, list ? list->modelColumn() : 0, m_view->rootIndex()));
    return found;
  }
  QVector<QModelIndex> pending; // the next one last
  const auto push = [&](const QModelIndex& parent) {
    for (int row = model->rowCount(parent); row-- > 0;)
      pending.append(model->index(row, 0, parent));
  };
  push(m_view->rootIndex());
  while (!pending.isEmpty()) {
    found.append(pending.takeLast());
    push(found.constLast());
  }
  return found;
}

int ItemCells::rows() const {
  return qobject_cast<QTreeView*>(m_view.data()) ? rowIndexes().size()
                                                 : m_view->model()->rowCount(m_view->rootIndex());
}

int ItemCells::columns() const {
  return qobject_cast<QListView*>(m_view.data())
             ? 1
             : m_view->model()->columnCount(m_view->rootIndex());
}

QModelIndex ItemCells::index(int row, int column) const {
  const int across = qMax(0, column); // a row alone means its first cell
  QModelIndex found;
  if (row >= 0 && across < columns()) {
    const auto* list = qobject_cast<QListView*>(m_view.data());
    if (qobject_cast<QTreeView*>(m_view.data()))
      found = rowIndexes().value(row);
    else
      found = m_view->model()->index(row, list ? list->modelColumn() : 0, m_view->rootIndex());
    if (found.isValid() && !list)
      found = found.sibling(found.row(), across);
  }
  // A long table may give a row its items only when somebody looks at it.
  if (const auto* table = qobject_cast<const QTableWidget*>(m_view.data()))
    if (found.isValid() && !table->item(found.row(), found.column()))
      m_view->scrollTo(found);
  if (!found.isValid())
    throw DriveError(QStringLiteral("%1 has no cell %2, %3; it has %4 rows and %5 columns")
                         .arg(describeWidget(m_view))
                         .arg(row)
                         .arg(column)
                         .arg(rows())
                         .arg(columns()));
  return found;
}

int ItemCells::rowOf(const QModelIndex& index) const {
  if (!index.isValid())
    return -1;
  return qobject_cast<QTreeView*>(m_view.data())
             ? rowIndexes().indexOf(index.sibling(index.row(), 0))
             : index.row();
}

int ItemCells::rowOf(const QVariant& numberOrText) const {
  if (isNumber(numberOrText)) {
    const int row = toIndex(numberOrText);
    index(row, 0);
    return row;
  }
  const QStringList texts = items();
  const int row = texts.indexOf(numberOrText.toString());
  if (row < 0)
    throw DriveError(QStringLiteral("%1 has no row \"%2\"; %3")
                         .arg(describeWidget(m_view), numberOrText.toString(), shortList(texts)));
  return row;
}

bool ItemCells::isHidden(const QModelIndex& index) const {
  if (const auto* table = qobject_cast<QTableView*>(m_view.data()))
    return table->isRowHidden(index.row()) || table->isColumnHidden(index.column());
  if (const auto* list = qobject_cast<QListView*>(m_view.data()))
    return list->isRowHidden(index.row());
  const auto* tree = qobject_cast<QTreeView*>(m_view.data());
  if (!tree)
    return false;
  bool hidden = tree->isColumnHidden(index.column());
  for (QModelIndex at = index; at.isValid() && at != m_view->rootIndex(); at = at.parent())
    hidden |= tree->isRowHidden(at.row(), at.parent());
  return hidden;
}

QString ItemCells::shownText(const QModelIndex& index) const {
  if (const QWidget* widget = valueWidget(m_view->indexWidget(index)))
    if (hasWidgetText(widget))
      return widgetText(widget);
  const QVariant value = index.data(Qt::DisplayRole);
  const auto* delegate = qobject_cast<QStyledItemDelegate*>(m_view->itemDelegate(index));
  return delegate && value.isValid() ? delegate->displayText(value, m_view->locale())
                                     : value.toString();
}

QString ItemCells::text(int row, int column) const {
  return shownText(index(row, column));
}

QStringList ItemCells::items() const {
  QStringList texts;
  const auto rows = rowIndexes();
  for (const QModelIndex& row : rows)
    texts.append(shownText(row));
  return texts;
}

QStringList ItemCells::headers() const {
  QStringList texts;
  if (!qobject_cast<QListView*>(m_view.data()))
    for (int column = 0; column < columns(); ++column)
      texts.append(m_view->model()->headerData(column, Qt::Horizontal).toString());
  return texts;
}

QVariantList ItemCells::table() const {
  QVariantList rows;
  const auto indexes = rowIndexes();
  for (const QModelIndex& row : indexes) {
    QVariantList texts;
    for (int column = 0; column < columns(); ++column)
      texts.append(shownText(columns() > 1 ? row.sibling(row.row(), column) : row));
    rows.append(QVariant(texts));
  }
  return rows;
}

QVariant ItemCells::current() const {
  const QModelIndex index = m_view->currentIndex();
  if (qobject_cast<QTableView*>(m_view.data()))
    return QVariantList{index.row(), index.column()};
  return rowOf(index);
}

QVariantMap ItemCells::info(int row, int column) const {
  const QModelIndex cell = index(row, column);
  const QPalette palette = m_view->palette();
  const Qt::ItemFlags flags = cell.flags();
  const QVariant state = cell.data(Qt::CheckStateRole);
  QVariantMap info{
      {QStringLiteral("text"), shownText(cell)},
      {QStringLiteral("foreground"),
       colourOf(cell.data(Qt::ForegroundRole), palette.color(QPalette::Text))},
      {QStringLiteral("background"),
       colourOf(cell.data(Qt::BackgroundRole), palette.color(QPalette::Base))},
      {QStringLiteral("bold"), cell.data(Qt::FontRole).value<QFont>().bold()},
      {QStringLiteral("toolTip"), cell.data(Qt::ToolTipRole).toString()},
      {QStringLiteral("enabled"), flags.testFlag(Qt::ItemIsEnabled) && m_view->isEnabled()},
      {QStringLiteral("editable"), flags.testFlag(Qt::ItemIsEditable)},
      {QStringLiteral("checkable"), flags.testFlag(Qt::ItemIsUserCheckable) && state.isValid()},
      {QStringLiteral("checked"), state.toInt() == Qt::Checked},
      {QStringLiteral("hidden"), isHidden(cell)},
      {QStringLiteral("kind"), kindOf(m_view, cell)},
  };
  // a widget covers what the item would show
  if (QWidget* widget = valueWidget(m_view->indexWidget(cell))) {
    info[QStringLiteral("toolTip")] = widget->toolTip();
    info[QStringLiteral("enabled")] = widget->isEnabled();
    info[QStringLiteral("kind")] = QString::fromUtf8(widget->metaObject()->className());
    const QVariant isReadOnly = widget->property("readOnly");
    info[QStringLiteral("editable")] = !isReadOnly.isValid() || !isReadOnly.toBool();
    info[QStringLiteral("checkable")] = widget->property("checkable").toBool();
    info[QStringLiteral("checked")] = widget->property("checked").toBool();
  }
  return info;
}
