#include "Application/ChooseDir.h"

#include "Application/Directory.h"
#include "Frame/ScriptFunction.h"
#include "Generic/InputDialog.h"
#include "HostSupport/Files.h"
#include "HostSupport/Parsing.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/Messages.h"

#include <QDir>

// The third argument is a filter word that scripts pass; a tree of directories has nothing to
// filter.
static const ScriptFunction declaration("ChooseDir", 0, "SSS", StringVectorResult,
                                        runDialogFunction<ChooseDir, UserString>);

ChooseDir::ChooseDir() : KelvarinDialog(nullptr, "ChooseDir", true, {}) {
  form.setupUi(this);
  form.directoryListView->setIconSize(icons.size());
  connect(form.directoryListView, &QTreeWidget::itemSelectionChanged, this,
          &ChooseDir::directoryListView_selectionChanged);
  connect(form.directoryListView, &QTreeWidget::itemExpanded, this,
          &ChooseDir::directoryListView_itemExpanded);
  connect(form.directoryListView, &QTreeWidget::itemCollapsed, this,
          &ChooseDir::directoryListView_itemCollapsed);
  connect(form.directoryListView, &QTreeWidget::itemClicked, this,
          &ChooseDir::directoryListView_clicked);
  connect(form.createDirectoryButton, &QPushButton::clicked, this,
          &ChooseDir::createDirectoryButton_clicked);
}

void ChooseDir::initialiseDialog() {
  const QString title = toQs(getString(1));
  if (!title.isEmpty())
    setWindowTitle(shownCaption(title));
  openTree(getString(0));
}

void ChooseDir::readDialog(UserDataType, bool accepted) {
  setStringResult(accepted ? toYs(form.directoryLabel->text()) : YString());
}

void ChooseDir::showEvent(QShowEvent* event) {
  KelvarinDialog::showEvent(event);
  // Only now is it known how many rows there is room for.
  showCurrent();
}

void ChooseDir::directoryListView_selectionChanged() {
  const QList<QTreeWidgetItem*> selected = form.directoryListView->selectedItems();
  if (selected.size() != 1)
    return;
  // Without a separator at its end also where it is a root: scripts put "/NAME" behind it.
  const QString path = static_cast<Directory*>(selected.first())->fullPath().chopped(1);
  form.directoryLabel->setText(toQs(sp_ConvertUnixToLocal(toYs(path))));
}

void ChooseDir::directoryListView_itemExpanded(QTreeWidgetItem* item) {
  static_cast<Directory*>(item)->setOpen(true);
}

void ChooseDir::directoryListView_itemCollapsed(QTreeWidgetItem* item) {
  static_cast<Directory*>(item)->setOpen(false);
}

void ChooseDir::createDirectoryButton_clicked() {
  const std::optional<QString> text =
      askForText(this, tr("Enter directory to create"), form.directoryLabel->text());
  if (!text)
    return;
  const QString path = belowChosen(*text);
  if (sp_MakeDir(toYs(path))) {
    openTree(sp_GetFullPath(toYs(path)));
    return;
  }
  warn(this, tr("Cannot Create Directory"),
       tr("Cannot create directory %1").arg(shownCaption(path)));
}

QString ChooseDir::belowChosen(const QString& name) const {
  const bool isBelow = !name.isEmpty() && QDir::isRelativePath(QDir::fromNativeSeparators(name));
  const QString folder = form.directoryLabel->text();
  return isBelow ? folder + QDir::separator() + name : name;
}

void ChooseDir::openTree(const YString& path) {
  form.directoryListView->clear();
  form.directoryLabel->clear();
  const TreePath wanted = cutTreePath(path);
  const QFileInfoList drives = QDir::drives();
  for (const QFileInfo& drive : drives) {
    auto* const root = new Directory(icons, drive.filePath());
    form.directoryListView->addTopLevelItem(root);
    if (root->name().compare(toQs(wanted.root), fileNameCase()) == 0)
      openBelow(root, wanted.below);
    else if (drives.size() == 1)
      root->setOpen(true);
  }
}

void ChooseDir::openBelow(Directory* root, const YString& path) {
  Directory* last = root;
  last->setOpen(true);
  const char* cursor = path;
  YString part;
  while (sp_GetToken(&cursor, &part, "/", nullptr, nullptr, false)) {
    Directory* const next = last->find(toQs(part));
    if (!next)
      break;
    next->setOpen(true);
    last = next;
  }
  form.directoryListView->setCurrentItem(last);
  showCurrent();
}

void ChooseDir::showCurrent() {
  // At the top, since what is in it is what the user goes on with.
  form.directoryListView->scrollTo(form.directoryListView->currentIndex(),
                                   QTreeWidget::PositionAtTop);
}
