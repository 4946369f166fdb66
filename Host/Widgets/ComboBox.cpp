#include "HostWidgets/ComboBox.h"

#include "BoundElement.h"
#include "HostSupport/Arguments.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"
#include "HostWidgets/Accessibility.h"

#include <QKeyEvent>
#include <QStandardItemModel>
#include <QWheelEvent>

#include <cmath>

namespace {

/// Nobody rewrites an entry; Qt's own would let a reader.
class EntryModel : public QStandardItemModel {
public:
  using QStandardItemModel::QStandardItemModel;

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    return QStandardItemModel::flags(index) & ~Qt::ItemIsEditable;
  }
};

} // namespace

ComboBox::ComboBox(QWidget* parent, const char* objectName)
    : QComboBox(sp_GuiParent(parent, "ComboBox")) {
  installFieldAccessibility();
  setModel(new EntryModel(this));
  setObjectName(QLatin1String(objectName));
  // The wheel that scrolls a page must not take the focus on its way.
  setFocusPolicy(Qt::StrongFocus);
}

void ComboBox::loadStrings(const char* items) {
  clear();
  const QString text = QString::fromUtf8(items);
  if (!text.isEmpty())
    addItems(text.split(QLatin1Char('|')));
}

void ComboBox::insertItem(const QString& text, int index) {
  QComboBox::insertItem(index < 0 ? count() : index, text);
}

void ComboBox::setValue(double index) {
  const double nearest = std::round(index);
  if (nearest >= 0 && nearest < count())
    setCurrentIndex(static_cast<int>(nearest));
}

void ComboBox::setStringValue(const QString& text) {
  int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (index < 0)
    index = findText(text, Qt::MatchFixedString);
  double number = 0;
  if (index < 0 && sp_IsEngNumber(text, &number)) {
    number = std::round(number);
    if (number >= 0 && number < count())
      index = static_cast<int>(number);
  }
  if (index >= 0)
    setCurrentIndex(index);
  else if (isEditable())
    setEditText(text);
}

bool ComboBox::initialiseWidget(UserFunctionInterface* call) {
  const bool hasItems = loadItems(call);
  return loadBoundElement(this, call) || hasItems;
}

bool ComboBox::loadItems(UserFunctionInterface* call) {
  const char* const* texts = nullptr;
  unsigned count = 0;
  if (itemsElementIndex < 0 || !sp_GetStringIfVector(call, argIndex, &texts, &count) ||
      unsigned(itemsElementIndex) >= count)
    return false;
  if (itemsStride <= 0) {
    loadStrings(texts[itemsElementIndex]);
    return true;
  }
  QStringList items;
  for (std::size_t i = std::size_t(itemsElementIndex); i < count; i += std::size_t(itemsStride))
    items.append(QString::fromUtf8(texts[i]));
  while (!items.isEmpty() && items.last().isEmpty())
    items.removeLast();
  clear();
  addItems(items);
  return true;
}

void ComboBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
  // A plain Tab never comes here. Ctrl+Tab turns the page round the box; a list that is not edited
  // would search its items for it.
  if (!isEditable() && (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab))
    event->ignore();
  else
    QComboBox::keyPressEvent(event);
}
