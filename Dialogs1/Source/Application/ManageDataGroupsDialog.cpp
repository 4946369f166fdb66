#include "Application/ManageDataGroupsDialog.h"

#include "Frame/ScriptFunction.h"
#include "Generic/InputDialog.h"
#include "Pieces/ListRows.h"
#include "Pieces/Messages.h"
#include "Pieces/TreeColumns.h"

#include <QHeaderView>
#include <QShortcut>

#include <algorithm>

static constexpr char widthsKey[] = "ManageDataGroupsDialog";

static const ScriptFunction declaration("ManageDataGroupsDialog", 1, "S", StringVectorResult,
                                        runDialogFunction<ManageDataGroupsDialog, UserString>);

ManageDataGroupsDialog::ManageDataGroupsDialog()
    : KelvarinDialog(nullptr, "ManageDataGroupDialog", true, {}) {
  form.setupUi(this);
  QTreeWidget* tree = form.manageGroupsListWidget;
  tree->setItemDelegate(new OneLineDelegate(tree));
  tree->setSelectionModel(new RowSelectionModel(tree->model(), tree));
  tree->header()->setSectionsMovable(false);

  using Self = ManageDataGroupsDialog;
  connect(form.setCurrentGroupButton, &QPushButton::clicked, this,
          &Self::setCurrentGroupButtonClicked);
  connect(form.deleteGroupButton, &QPushButton::clicked, this, &Self::deleteGroupButtonClicked);
  connect(form.keepGroupButton, &QPushButton::clicked, this, &Self::keepGroupButtonClicked);
  connect(form.deleteAllGroupsButton, &QPushButton::clicked, this,
          &Self::deleteAllGroupsButtonClicked);
  connect(form.editTitleButton, &QPushButton::clicked, this, &Self::editTitleButtonClicked);
  connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &Self::manageGroupsListWidgetSelectionChanged);
  onKey(Qt::Key_Delete, form.deleteGroupButton);
  onKey(Qt::Key_F2, form.editTitleButton);
}

void ManageDataGroupsDialog::onKey(int key, QPushButton* button) {
  // Not the button's own shortcut, which clicks it only after it has been seen to go down: what
  // comes right after the key, OK say, must find it done.
  connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, button,
          &QPushButton::click);
}

void ManageDataGroupsDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const Texts lines = texts(0);
  QList<QTreeWidgetItem*> items;
  items.reserve(static_cast<int>(lines.count()));
  for (unsigned row = 0; row < lines.count(); ++row) {
    auto* item = new ManageDataItem(lines.raw(row));
    groups.append(item);
    items.append(item);
  }
  QTreeWidget* tree = form.manageGroupsListWidget;
  tree->addTopLevelItems(items);
  restoreColumnWidths(tree, widthsKey);
  tree->setCurrentItem(tree->topLevelItem(std::max(groups.current(), 0)));
  manageGroupsListWidgetSelectionChanged();
  resizeToContents(this);
}

void ManageDataGroupsDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  const QTreeWidget* tree = form.manageGroupsListWidget;
  TextVector lines;
  for (int row = 0; row < tree->topLevelItemCount(); ++row)
    lines.append(static_cast<ManageDataItem*>(tree->topLevelItem(row))->result());
  setTextsResult(lines);
}

void ManageDataGroupsDialog::showEvent(QShowEvent* event) {
  KelvarinDialog::showEvent(event);
  // Only now the list has the height at which the current group is to be in sight.
  form.manageGroupsListWidget->scrollTo(form.manageGroupsListWidget->currentIndex());
}

void ManageDataGroupsDialog::hideEvent(QHideEvent* event) {
  saveColumnWidths(form.manageGroupsListWidget, widthsKey);
  KelvarinDialog::hideEvent(event);
}

void ManageDataGroupsDialog::setCurrentGroupButtonClicked() {
  groups.setCurrent(selectedRows(form.manageGroupsListWidget).front().first);
  showFlags();
}

void ManageDataGroupsDialog::deleteGroupButtonClicked() {
  showRemoval(groups.remove(selectedRows(form.manageGroupsListWidget)));
}

void ManageDataGroupsDialog::keepGroupButtonClicked() {
  groups.keep(selectedRows(form.manageGroupsListWidget));
  showFlags();
}

void ManageDataGroupsDialog::deleteAllGroupsButtonClicked() {
  showRemoval(groups.removeAll());
}

void ManageDataGroupsDialog::editTitleButtonClicked() {
  QTreeWidget* tree = form.manageGroupsListWidget;
  QTreeWidgetItem* item = tree->topLevelItem(selectedRows(tree).front().first);
  QString title = item->text(ManageDataItem::Title);
  while (const std::optional<QString> text = askForText(this, tr("Title"), title)) {
    title = *text;
    if (!title.contains(QLatin1Char(';'))) {
      // A title that was not touched goes back byte for byte, even one that is no valid text.
      if (title != item->text(ManageDataItem::Title))
        item->setText(ManageDataItem::Title, title);
      return;
    }
    warn(this, windowTitle(), tr("A title has no semicolon in it."));
  }
}

void ManageDataGroupsDialog::showRemoval(const DataGroups::Removal& removal) {
  QTreeWidget* tree = form.manageGroupsListWidget;
  {
    const Updating guard(this);
    // Emptied before anything else is selected: comparing two selections costs the product of
    // their lengths.
    tree->clearSelection();
    for (const RowBlock& block : removal.deleted)
      for (int row = block.first; row <= block.last; ++row)
        tree->setRowHidden(row, QModelIndex(), true);
    selectRows(tree, removal.selected);
    if (removal.cursor >= 0)
      tree->setCurrentItem(tree->topLevelItem(removal.cursor), 0, QItemSelectionModel::NoUpdate);
  }
  showFlags();
  manageGroupsListWidgetSelectionChanged();
}

void ManageDataGroupsDialog::showFlags() {
  // Rows show their flags as they are; one signal for all of them has the view look again.
  QAbstractItemModel* model = form.manageGroupsListWidget->model();
  emit model->dataChanged(model->index(0, ManageDataItem::Name),
                          model->index(model->rowCount() - 1, ManageDataItem::Flags));
}

void ManageDataGroupsDialog::manageGroupsListWidgetSelectionChanged() {
  if (updating)
    return;
  const DataGroups::Actions actions = groups.actions(selectedRows(form.manageGroupsListWidget));
  const std::pair<QPushButton*, bool> states[] = {
      {form.setCurrentGroupButton, actions.setCurrent},
      {form.deleteGroupButton, actions.remove},
      {form.keepGroupButton, actions.keep},
      {form.deleteAllGroupsButton, actions.removeAll},
      {form.editTitleButton, actions.editTitle},
  };
  for (const auto& [button, enabled] : states) {
    // Else the focus would go on to the next button, which may be the one that deletes all.
    if (!enabled && button->hasFocus())
      form.manageGroupsListWidget->setFocus();
    button->setEnabled(enabled);
  }
}
