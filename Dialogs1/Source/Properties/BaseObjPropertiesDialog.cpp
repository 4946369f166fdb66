#include "Properties/BaseObjPropertiesDialog.h"

#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"
#include "Pieces/ScriptTexts.h"
#include "Properties/ListViewProperty.h"
#include "Properties/PropertyEditors.h"

#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>

#include <algorithm>

enum Argument { Names, Values, Types, Extras = 4, FontStyles };

BaseObjPropertiesDialog::BaseObjPropertiesDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {}

void BaseObjPropertiesDialog::editItem(QTreeWidgetItem* item) {
  if (auto* row = dynamic_cast<ListViewProperty*>(item))
    editPropertyRow(this, row, fontStyles());
}

void BaseObjPropertiesDialog::objPropsListViewDoubleClicked(QTreeWidgetItem* item, int) {
  editItem(item);
}

void BaseObjPropertiesDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  KelvarinDialog::prepareDialog(args, type);
  QTreeWidget* tree = itemsView();
  connect(tree, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int column) {
    objPropsListViewDoubleClicked(item, column);
  });

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
    // In the list, Return is for the row; this is for the dialog.
    if (key != Qt::Key_F2)
      connect(new QShortcut(QKeySequence(Qt::CTRL + key), this), &QShortcut::activated, okButton,
              &QPushButton::click);
  }
}

void BaseObjPropertiesDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const char* const* names = nullptr;
  const char* const* values = nullptr;
  const char* const* types = nullptr;
  const char* const* extras = nullptr;
  unsigned nameCount = 0;
  unsigned valueCount = 0;
  unsigned typeCount = 0;
  unsigned extraCount = 0;
  getStringVector(Names, &names, &nameCount);
  getStringVector(Values, &values, &valueCount);
  getStringVector(Types, &types, &typeCount);
  getStringVector(Extras, &extras, &extraCount);
  rowCount = static_cast<int>(std::min(nameCount, valueCount));
  hasExtras = scriptArgs->argCount > Extras;

  QList<QTreeWidgetItem*> rows;
  rows.reserve(rowCount);
  for (unsigned i = 0; i < std::min(nameCount, valueCount); ++i)
    rows.append(new ListViewProperty(textAt(names, nameCount, i), values[i],
                                     i < typeCount ? types[i] : "", static_cast<int>(i),
                                     i < extraCount ? extras[i] : ""));
  QTreeWidget* tree = itemsView();
  tree->clear();
  tree->addTopLevelItems(rows);
  makeRowsUniform(tree);
  if (rowCount > 0)
    tree->setCurrentItem(tree->topLevelItem(0));
}

void BaseObjPropertiesDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  const int count = itemsView()->topLevelItemCount();
  char** results = makeStringResult(count);
  if (!results)
    return;
  for (int i = 0; i < count; ++i)
    if (const auto* row = dynamic_cast<ListViewProperty*>(itemsView()->topLevelItem(i)))
      results[row->rowIndex] = hostString(resultText(*row).c_str());
}

ListViewProperty* BaseObjPropertiesDialog::findProperty(const QString& name) {
  for (int i = 0; i < itemsView()->topLevelItemCount(); ++i) {
    auto* row = dynamic_cast<ListViewProperty*>(itemsView()->topLevelItem(i));
    if (row && row->name() == name)
      return row;
  }
  return nullptr;
}

std::optional<QString> BaseObjPropertiesDialog::getProperty(const QString& name) {
  const ListViewProperty* row = findProperty(name);
  return row ? std::optional(row->rawValue) : std::nullopt;
}

void BaseObjPropertiesDialog::setProperty(const QString& name, const QString& value) {
  if (ListViewProperty* row = findProperty(name))
    row->setValue(value);
}

void BaseObjPropertiesDialog::addProperty() {
  QTreeWidget* tree = itemsView();
  if (auto* row = askForNewProperty(this, tree->topLevelItemCount(), fontStyles())) {
    tree->addTopLevelItem(row);
    tree->setCurrentItem(row);
    tree->setFocus(Qt::OtherFocusReason);
  }
}

YString BaseObjPropertiesDialog::resultText(const ListViewProperty& row) const {
  const char* const* values = nullptr;
  unsigned count = 0;
  getStringVector(Values, &values, &count);
  const bool isNew = row.rowIndex >= rowCount; // the script knows the names of the others
  const char* passed = isNew ? nullptr : values[row.rowIndex];
  YString text = writePropertyValue({row.rawValue, row.attributes}, passed, row.kind());
  if (isNew || !namePrefix.isEmpty())
    text = toYs(row.name()).concat(";").concat(text);
  return hasExtras ? YString(text.concat(";").concat(row.extra)) : text;
}

QStringList BaseObjPropertiesDialog::fontStyles() const {
  return texts(FontStyles).all();
}
