#include "HostWidgets/ParameterView.h"

#include "HostSupport/Arguments.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

#include <algorithm>
#include <limits>

namespace {

enum Column { NameColumn, ValueColumn };

/// The script's own bytes of a value, where its text does not give them back.
constexpr int bytesRole = Qt::UserRole;

constexpr int widestName = 25; // average characters; a longer one must not push the values out

// What a usual set of parameters takes.
constexpr int hintColumns = 50;
constexpr int hintRows = 14;

class ParameterDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale&) const override {
    return rowText(value.toString());
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor))
      line->setMaxLength(std::numeric_limits<int>::max()); // opening a value never shortens it
    editor->setAccessibleName(rowText(index.sibling(index.row(), NameColumn).data().toString()));
    return editor;
  }
};

class ParameterRow : public QTreeWidgetItem {
public:
  using QTreeWidgetItem::QTreeWidgetItem;

  /// A row is edited as one; what comes from elsewhere than the view's own editor leaves the name.
  void setData(int column, int role, const QVariant& value) override {
    if (column != NameColumn || !treeWidget())
      QTreeWidgetItem::setData(column, role, value);
  }
};

QTreeWidgetItem* makeRow(const char* name, const char* value) {
  const QString text = QString::fromUtf8(value);
  auto* row = new ParameterRow;
  row->setText(NameColumn, QString::fromUtf8(name));
  row->setText(ValueColumn, text);
  row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable |
                Qt::ItemNeverHasChildren);
  if (text.toUtf8() != value)
    row->setData(ValueColumn, bytesRole, QByteArray(value));
  return row;
}

QByteArray valueOf(const QTreeWidgetItem* row) {
  const QString text = row->text(ValueColumn);
  const QByteArray bytes = row->data(ValueColumn, bytesRole).toByteArray();
  return !bytes.isEmpty() && QString::fromUtf8(bytes) == text ? bytes : text.toUtf8();
}

} // namespace

ParameterView::ParameterView(QWidget* parent, const char* objectName)
    : QTreeWidget(sp_GuiParent(parent, "ParameterView")) {
  setObjectName(QLatin1String(objectName));
  setHeaderLabels({tr("Name"), tr("Value")});
  header()->setSectionsMovable(false);
  setItemDelegate(new ParameterDelegate(this));
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setEditTriggers(DoubleClicked | EditKeyPressed);
}

bool ParameterView::initialiseWidget(UserFunctionInterface* call) {
  const char* const* names = nullptr;
  const char* const* values = nullptr;
  unsigned count = 0;
  unsigned valueCount = 0;
  if (!sp_GetStringIfVector(call, nameArgIndex, &names, &count))
    return false;
  sp_GetStringIfVector(call, argIndex, &values, &valueCount);

  QList<QTreeWidgetItem*> rows;
  rows.reserve(static_cast<int>(count));
  for (unsigned i = 0; i < count; ++i) {
    const char* value = i < valueCount ? values[i] : nullptr;
    rows.append(makeRow(names[i], value ? value : ""));
  }
  clear();
  addTopLevelItems(rows);
  setCurrentItem(topLevelItem(0));
  resizeColumnToContents(NameColumn);
  const int widest = widestName * fontMetrics().averageCharWidth();
  setColumnWidth(NameColumn, std::min(columnWidth(NameColumn), widest));
  return true;
}

bool ParameterView::readWidget(UserReturnData* result, const UserFunctionInterface* call) {
  if (!result || !result->data || result->type != UserString || !call)
    return false;
  auto* const texts = static_cast<char**>(result->data);
  const auto rows = std::min(result->count, static_cast<std::uint32_t>(topLevelItemCount()));
  for (std::uint32_t row = 0; row < rows; ++row)
    texts[row] = call->hostString(valueOf(topLevelItem(static_cast<int>(row))).constData());
  return true;
}

QSize ParameterView::sizeHint() const {
  const QFontMetrics metrics(font());
  return {hintColumns * metrics.averageCharWidth(), hintRows * metrics.lineSpacing()};
}

void ParameterView::keyboardSearch(const QString& search) {
  if (currentItem()) // the column of the cursor is the one that is searched
    setCurrentItem(currentItem(), NameColumn);
  QTreeWidget::keyboardSearch(search);
}

bool ParameterView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  // Whichever cell of a row is meant, what is edited is its value.
  return QTreeWidget::edit(index.sibling(index.row(), ValueColumn), trigger, event);
}

void ParameterView::keyPressEvent(QKeyEvent* event) {
  // As F2: the key opens the value, and is not typed into it.
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier && currentItem())
    edit(currentIndex());
  else
    QTreeWidget::keyPressEvent(event);
}

void ParameterView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool goesOn = hint == QAbstractItemDelegate::EditNextItem;
  const bool goesBack = hint == QAbstractItemDelegate::EditPreviousItem;
  QTreeWidget::closeEditor(editor, goesOn || goesBack ? QAbstractItemDelegate::NoHint : hint);
  if (goesOn || goesBack)
    focusNextPrevChild(goesOn);
}
