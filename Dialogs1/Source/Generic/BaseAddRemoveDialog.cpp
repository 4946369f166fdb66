#include "Generic/BaseAddRemoveDialog.h"

#include "HostSupport/HostSupport.h"
#include "HostSupportQt/Captions.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/ListRows.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

namespace {

enum Argument { SelectedItems, AvailableItems, Settings };
enum Setting { WindowTitle, SelectedTitle, AvailableTitle, HelpTopic, Comparison };

template <class Widget> void findWidget(const QObject* dialog, const char* name, Widget** found) {
  *found = qobject_cast<Widget*>(
      qtsp_SearchChild(dialog, name, Widget::staticMetaObject.className(), true));
  Q_ASSERT(*found);
}

/// Puts the cursor there, without selecting.
void putCursor(QListWidget* list, int row) {
  list->setCurrentRow(std::min(row, list->count() - 1), QItemSelectionModel::NoUpdate);
}

void setTitle(QGroupBox* box, QListWidget* list, const QString& title) {
  if (title.isEmpty())
    return;
  captionGroup(box, title, Ampersands::MarkMnemonics);
  list->setAccessibleName(plainCaption(shownCaption(title)));
}

} // namespace

BaseAddRemoveDialog::BaseAddRemoveDialog(const char* objectName, bool plain)
    : KelvarinDialog(nullptr, objectName, true, {}), plainResult(plain) {}

void BaseAddRemoveDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  findWidget(this, "selectedItemsListBox", &selectedItemsListBox);
  findWidget(this, "allItemsListBox", &allItemsListBox);
  findWidget(this, "addButton", &addButton);
  findWidget(this, "removeButton", &removeButton);
  findWidget(this, "upButton", &upButton);
  findWidget(this, "downButton", &downButton);
  findWidget(this, "selectedItemsGroupBox", &selectedItemsGroupBox);
  findWidget(this, "allItemsGroupBox", &allItemsGroupBox);

  using Self = BaseAddRemoveDialog;
  connect(addButton, &QToolButton::clicked, this, &Self::addButton_clicked);
  connect(removeButton, &QToolButton::clicked, this, &Self::removeButton_clicked);
  connect(upButton, &QToolButton::clicked, this, &Self::upButton_clicked);
  connect(downButton, &QToolButton::clicked, this, &Self::downButton_clicked);
  for (QListWidget* list : {allItemsListBox, selectedItemsListBox})
    connect(list, &QListWidget::doubleClicked, this, [this, list](const QModelIndex& index) {
      transfer(list, {{index.row(), index.row()}});
    });
  for (int key : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_Enter})
    onKey(allItemsListBox, key, &Self::addButton_clicked);
  for (int key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter})
    onKey(selectedItemsListBox, key, &Self::removeButton_clicked);
  onKey(selectedItemsListBox, Qt::CTRL + Qt::Key_Up, &Self::upButton_clicked);
  onKey(selectedItemsListBox, Qt::CTRL + Qt::Key_Down, &Self::downButton_clicked);
  KelvarinDialog::prepareDialog(args, type);
}

void BaseAddRemoveDialog::onKey(QListWidget* list, int key, Slot slot) {
  auto* shortcut = new QShortcut(QKeySequence(key), list, nullptr, nullptr, Qt::WidgetShortcut);
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  connect(shortcut, &QShortcut::activated, this, [this, list, slot, isReturn] {
    if (isReturn && list->count() == 0) {
      okClicked(); // there is nothing else that it could mean
      return;
    }
    // With nothing selected the user means the item that the cursor is on.
    if (list->currentItem() && !list->selectionModel()->hasSelection())
      list->currentItem()->setSelected(true);
    (this->*slot)();
  });
}

void BaseAddRemoveDialog::initialiseDialog() {
  selectedItems = texts(SelectedItems);
  availableItems = texts(AvailableItems);
  // A script that has nothing selected cannot always pass an empty vector.
  if (selectedItems.count() == 1 && selectedItems.text(0).isEmpty())
    selectedItems = Texts();
  const Texts settings = texts(Settings);
  const bool arePaths = settings.is(Comparison, "pathnames");
  lists =
      AddRemoveLists(selectedItems.all(), availableItems.all(),
                     arePaths && sp_CaseSensitiveFiles() ? Qt::CaseSensitive : Qt::CaseInsensitive);
  for (QListWidget* list : {selectedItemsListBox, allItemsListBox}) {
    list->clear();
    showItems(list, {});
  }

  const QString title = settings.text(WindowTitle);
  if (!title.isEmpty())
    setWindowTitle(shownCaption(title));
  setTitle(selectedItemsGroupBox, selectedItemsListBox, settings.text(SelectedTitle));
  setTitle(allItemsGroupBox, allItemsListBox, settings.text(AvailableTitle));
  helpTopic = toYs(settings.text(HelpTopic));
  if (helpTopic.isEmpty())
    static_cast<QPushButton*>(qtsp_SearchChild(this, "helpButton", "QPushButton", true))->hide();
}

void BaseAddRemoveDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  TextVector result;
  if (!plainResult)
    result.setNumber(0, static_cast<int>(lists.selected().size()));
  for (int item : lists.selected())
    result.append(passedItem(item));
  setTextsResult(result);
}

void BaseAddRemoveDialog::helpClicked() {
  if (!helpTopic.isEmpty())
    sp_RunHelp(helpTopic.c_str(), nullptr);
}

void BaseAddRemoveDialog::removeButton_clicked() {
  transfer(selectedItemsListBox, selectedRows(selectedItemsListBox));
}

void BaseAddRemoveDialog::addButton_clicked() {
  transfer(allItemsListBox, selectedRows(allItemsListBox));
}

void BaseAddRemoveDialog::upButton_clicked() {
  moveSelected(-1);
}

void BaseAddRemoveDialog::downButton_clicked() {
  moveSelected(1);
}

void BaseAddRemoveDialog::transfer(QListWidget* from, const RowBlocks& rows) {
  if (rows.empty())
    return;
  QListWidget* to = from == allItemsListBox ? selectedItemsListBox : allItemsListBox;
  const AddRemoveLists::Items fromBefore = itemsOf(from);
  const AddRemoveLists::Items toBefore = itemsOf(to);
  if (from == allItemsListBox)
    lists.add(rows);
  else
    lists.remove(rows);
  int cursor = rows.front().first;
  for (const RowBlock& block : rows)
    cursor = std::min(cursor, block.first);
  showItems(from, fromBefore);
  showItems(to, toBefore);
  putCursor(from, cursor);
  putCursor(to, to->count() - 1);
}

void BaseAddRemoveDialog::moveSelected(int step) {
  const AddRemoveLists::Items before = lists.selected();
  const RowBlocks rows = lists.move(selectedRows(selectedItemsListBox), step);
  if (lists.selected() == before)
    return;
  const int cursor = selectedItemsListBox->currentRow();
  const bool moves = cursor >= 0 && selectedItemsListBox->item(cursor)->isSelected() &&
                     lists.selected()[static_cast<std::size_t>(cursor)] !=
                         before[static_cast<std::size_t>(cursor)];
  showItems(selectedItemsListBox, before);
  selectRows(selectedItemsListBox, rows);
  putCursor(selectedItemsListBox, moves ? cursor + step : cursor);
}

void BaseAddRemoveDialog::showItems(QListWidget* list, const AddRemoveLists::Items& before) {
  const AddRemoveLists::Items& after = itemsOf(list);
  const auto same = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto tail = std::mismatch(before.rbegin(), std::make_reverse_iterator(same.first),
                                  after.rbegin(), std::make_reverse_iterator(same.second));
  const int row = static_cast<int>(same.first - before.begin());
  QStringList texts;
  texts.reserve(static_cast<int>(tail.second.base() - same.second));
  for (auto item = same.second; item != tail.second.base(); ++item)
    texts.append(lists.text(*item));

  const Updating guard(this);
  list->setUpdatesEnabled(false);
  // Selected rows that come and go one by one are what takes a list's time.
  list->clearSelection();
  list->model()->removeRows(row, static_cast<int>(tail.first.base() - same.first));
  list->insertItems(row, texts);
  makeRowsUniform(list);
  list->setUpdatesEnabled(true);
}

const AddRemoveLists::Items& BaseAddRemoveDialog::itemsOf(const QListWidget* list) const {
  return list == allItemsListBox ? lists.available() : lists.selected();
}

const char* BaseAddRemoveDialog::passedItem(int item) const {
  const auto place = static_cast<unsigned>(item);
  return selectedItems.has(place) ? selectedItems.raw(place)
                                  : availableItems.raw(place - selectedItems.count());
}
