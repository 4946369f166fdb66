#include "Properties/BaseObjPropertiesDialog.h"

#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"
#include "Properties/ListViewProperty.h"
#include "Properties/PropertyEditors.h"

#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>

namespace {

enum Argument { Names, Values, Types, Extras = 4, FontStyles };

} // namespace

BaseObjPropertiesDialog::BaseObjPropertiesDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {}

void BaseObjPropertiesDialog::editItem(QTreeWidgetItem* item) {
  const int row = itemsView()->indexOfTopLevelItem(item);
  if (row < 0)
    return;
  editListedProperty(this, &properties[row], fontStyles());
  showChange(row);
}

void BaseObjPropertiesDialog::objPropsListViewDoubleClicked(QTreeWidgetItem* item, int) {
  editItem(item);
}

void BaseObjPropertiesDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  KelvarinDialog::prepareDialog(args, type);
  QTreeWidget* tree = itemsView();
  connect(tree, &QTreeWidget::itemDoubleClicked, this,
          &BaseObjPropertiesDialog::objPropsListViewDoubleClicked);

  auto* okButton =
      static_cast<QPushButton*>(qtsp_SearchChild(this, "okButton", "QPushButton", true));
  for (int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
    auto* edit = new QShortcut(QKeySequence(key), tree, nullptr, nullptr, Qt::WidgetShortcut);
    edit->setAutoRepeat(false); // a key held down would open what it has just closed
    connect(edit, &QShortcut::activated, this, [this, tree, okButton, key] {
      if (QTreeWidgetItem* item = tree->currentItem())
        objPropsListViewDoubleClicked(item, tree->currentColumn());
      else if (key != Qt::Key_F2)
        okButton->click();
    });
  }
}

void BaseObjPropertiesDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  QTreeWidget* tree = itemsView();
  tree->clear();
  properties = PropertyList(texts(Names), texts(Values), texts(Types), texts(Extras));
  properties.givesExtras = scriptArgs->argCount > Extras;

  QList<QTreeWidgetItem*> rows;
  rows.reserve(properties.count());
  for (int row = 0; row < properties.count(); ++row)
    rows.append(new ListViewProperty(properties[row]));
  tree->addTopLevelItems(rows);
  makeRowsUniform(tree);
  tree->setCurrentItem(tree->topLevelItem(0));
}

void BaseObjPropertiesDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    setTextsResult(properties.results());
}

std::optional<QString> BaseObjPropertiesDialog::getProperty(const QString& name) const {
  return properties.getProperty(name);
}

void BaseObjPropertiesDialog::setProperty(const QString& name, const QString& value) {
  showChange(properties.setProperty(name, value));
}

void BaseObjPropertiesDialog::showChange(int row) {
  if (QTreeWidgetItem* item = itemsView()->topLevelItem(row))
    static_cast<ListViewProperty*>(item)->showChange();
}

void BaseObjPropertiesDialog::addProperty() {
  const auto made = askForNewProperty(this, fontStyles());
  if (!made)
    return;
  QTreeWidget* tree = itemsView();
  auto* row = new ListViewProperty(properties.addProperty(*made));
  tree->addTopLevelItem(row);
  tree->setCurrentItem(row);
  tree->setFocus(Qt::OtherFocusReason);
}

QStringList BaseObjPropertiesDialog::fontStyles() const {
  return texts(FontStyles).all();
}
