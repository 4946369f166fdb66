#include "DriverFixture.h"

#include "Drive/DialogDriver.h"
#include "Drive/InputPlayer.h"
#include "HostWidgets/Buttons.h"
#include "HostWidgets/CheckBox.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/EditBox.h"
#include "HostWidgets/GroupBox.h"
#include "HostWidgets/Label.h"
#include "HostWidgets/RadioButton.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"
#include "HostWidgets/TextEdit.h"
#include "Script/ScriptDialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QJSEngine>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QScrollArea>
#include <QShortcut>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>

namespace {

template <typename W> W* named(W* widget, const char* name) {
  widget->setObjectName(QLatin1String(name));
  return widget;
}

QString text(const char* utf8) {
  return QString::fromUtf8(utf8);
}

/// An item of a class of its own, as modules derive them.
class PartItem : public QTableWidgetItem {
public:
  using QTableWidgetItem::QTableWidgetItem;
};

} // namespace

FixtureDialog::FixtureDialog(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("fixture"));
  setWindowTitle(QStringLiteral("Every Widget"));
  auto* layout = new QVBoxLayout(this);
  auto* tabs = named(new QTabWidget, "tabs");
  tabs->addTab(fieldPage(), QStringLiteral("&Fields"));
  tabs->addTab(choicePage(), QStringLiteral("&Choices"));
  tabs->addTab(viewPage(), QStringLiteral("&Views && cells"));
  tabs->addTab(longPage(), QStringLiteral("&Long"));
  tabs->addTab(new QWidget, QStringLiteral("Disabled"));
  tabs->setTabEnabled(4, false);
  layout->addWidget(tabs);
  layout->addWidget(buttonRow());
  connect(new QShortcut(QKeySequence(Qt::CTRL + Qt::Key_K), this), &QShortcut::activated, this,
          [this] { note(text("Ctrl+K")); });
}

QWidget* FixtureDialog::fieldPage() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  const auto add = [grid](const char* caption, QWidget* field) {
    auto* label = new QLabel(text(caption));
    label->setBuddy(field);
    grid->addWidget(label, grid->rowCount(), 0);
    grid->addWidget(field, grid->rowCount() - 1, 1);
  };
  auto* edit = new EditBox(nullptr, "edit");
  connect(edit, &QLineEdit::editingFinished, this,
          [this, edit] { note(text("edit=") + edit->text()); });
  add("&Edit", edit);
  auto* readOnly = named(new QLineEdit(text("fixed")), "readOnly");
  readOnly->setReadOnly(true);
  add("Read-only", readOnly);
  add("Memo", new TextEdit(nullptr, "memo"));
  auto* rich = named(new QTextEdit, "rich");
  rich->setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* insert = new QAction(text("Insert"), rich);
  connect(insert, &QAction::triggered, this, [this] { note(text("insert")); });
  rich->addAction(insert);
  add("Rich", rich);
  auto* spinner = new Spinner(nullptr, "spinner");
  spinner->setValue(4700);
  connect(spinner, &Spinner::changed, this,
          [this](const QString& now) { note(text("spinner=") + now); });
  add("&Spinner", spinner);
  add("Nameless", new Spinner);
  auto* spinBox = named(new QSpinBox, "spinBox");
  spinBox->setSuffix(text(" mm"));
  connect(spinBox, &QSpinBox::editingFinished, this,
          [this, spinBox] { note(text("spinBox=%1").arg(spinBox->value())); });
  add("Spin box", spinBox);
  add("Double", named(new QDoubleSpinBox, "doubleBox"));
  auto* slider = named(new QSlider(Qt::Horizontal), "slider");
  slider->setRange(0, 97);
  slider->setSingleStep(2);
  add("Slider", slider);
  auto* hidden = new EditBox(nullptr, "hidden");
  add("Hidden", hidden);
  hidden->hide();
  auto* disabled = new EditBox(nullptr, "disabled");
  disabled->setEnabled(false);
  add("Disabled", disabled);
  auto* info = new Label(nullptr, "infoLabel");
  info->setText(text("With information"));
  info->setInfo(text("More of it"));
  grid->addWidget(info, grid->rowCount(), 0, 1, 2);
  auto* covered = new PushButton(page, "covered");
  auto* cover = named(new QFrame(page), "cover");
  cover->setFrameShape(QFrame::Box);
  grid->addWidget(covered, grid->rowCount(), 0);
  grid->addWidget(cover, grid->rowCount() - 1, 0);
  return page;
}

QWidget* FixtureDialog::choicePage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  const auto addCombo = [&](const char* name, bool isEditable) {
    auto* combo = new ComboBox(nullptr, name);
    combo->addItems({text("alpha"), text("beta"), text("gamma")});
    combo->setEditable(isEditable);
    connect(combo, QOverload<int>::of(&QComboBox::activated), this,
            [this, combo](int row) { note(text("%1:%2").arg(combo->objectName()).arg(row)); });
    column->addWidget(combo);
    return combo;
  };
  addCombo("combo", false)->setItemData(1, 0, Qt::UserRole - 1); // "beta" cannot be chosen
  addCombo("editable", true);
  auto* check = new CheckBox(nullptr, "check");
  check->setText(text("&Check it"));
  connect(check, &QCheckBox::clicked, this, [this](bool on) { note(text("check=%1").arg(on)); });
  column->addWidget(check);
  auto* third = new CheckBox(nullptr, "third");
  third->setText(text("Third state"));
  third->setTristate(true);
  third->setCheckState(Qt::PartiallyChecked);
  column->addWidget(third);
  auto* group = named(new RadioGroup, "group");
  auto* groupColumn = new QVBoxLayout(group);
  for (const char* caption : {"One", "Two", "Three"}) {
    auto* button = new RadioButton;
    button->setText(text(caption));
    groupColumn->addWidget(button);
  }
  column->addWidget(group);
  auto* options = new GroupBox(nullptr, "options");
  options->setTitle(text("&Options"));
  options->setCheckable(true);
  options->setChecked(false);
  auto* optionsColumn = new QVBoxLayout(options);
  optionsColumn->addWidget(new EditBox(nullptr, "inOptions"));
  optionsColumn->addWidget(new EditBox(nullptr, "twin"));
  column->addWidget(options);
  column->addWidget(new EditBox(nullptr, "twin"));
  options->findChild<QLineEdit*>(text("twin"))->hide();
  return page;
}

void FixtureDialog::fillTable(QTableWidget* table) {
  table->setHorizontalHeaderLabels({text("Part"), text("Value"), text("Kind"), text("Use")});
  for (int row = 0; row < table->rowCount(); ++row)
    for (int column = 0; column < 2; ++column)
      table->setItem(row, column, new PartItem(text("%1%2").arg(QChar('a' + column)).arg(row)));
  auto* kind = new ComboBox(nullptr, "kind");
  kind->addItems({text("npn"), text("pnp")});
  table->setCellWidget(0, 2, kind);
  auto* holder = new QWidget;
  auto* row = new QHBoxLayout(holder);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new CheckBox);
  table->setCellWidget(1, 2, holder);
  table->setCellWidget(2, 2, new Spinner);
  auto* use = new PartItem(text("use"));
  use->setFlags(use->flags() | Qt::ItemIsUserCheckable);
  use->setCheckState(Qt::Unchecked);
  use->setForeground(QColor(text("#102030")));
  QFont bold;
  bold.setBold(true);
  use->setFont(bold);
  use->setBackground(QColor(text("#a0b0c0")));
  use->setToolTip(text("tip"));
  table->setItem(0, 3, use);
  table->item(1, 1)->setFlags(Qt::ItemIsEnabled);
  table->item(2, 1)->setFlags(Qt::NoItemFlags);
  table->setRowHidden(5, true);
  connect(table, &QTableWidget::itemChanged, this,
          [this](QTableWidgetItem* item) { note(text("cell=") + item->text()); });
}

QWidget* FixtureDialog::viewPage() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  const auto addList = [grid](const char* name, QAbstractItemView::SelectionMode mode) {
    auto* list = named(new QListWidget, name);
    for (int row = 0; row < 40; ++row)
      list->addItem(text("line %1").arg(row));
    list->setSelectionMode(mode);
    grid->addWidget(list, 0, grid->count());
    return list;
  };
  auto* list = addList("list", QAbstractItemView::ExtendedSelection);
  list->item(3)->setFlags(Qt::NoItemFlags);
  list->setRowHidden(4, true);
  connect(list, &QListWidget::itemDoubleClicked, this,
          [this](QListWidgetItem* item) { note(text("double=") + item->text()); });
  addList("single", QAbstractItemView::SingleSelection);
  addList("multi", QAbstractItemView::MultiSelection);
  auto* table = named(new QTableWidget(30, 4), "table");
  fillTable(table);
  grid->addWidget(table, 1, 0, 1, 2);
  auto* tree = named(new QTreeWidget, "tree");
  tree->setHeaderLabels({text("Name"), text("Unit")});
  for (int top = 0; top < 3; ++top) {
    auto* parent = new QTreeWidgetItem(tree, {text("top%1").arg(top), text("-")});
    for (int child = 0; child < 2; ++child)
      new QTreeWidgetItem(parent, {text("child%1%2").arg(top).arg(child), text("V")});
  }
  tree->topLevelItem(0)->child(1)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsEditable |
                                            Qt::ItemIsSelectable);
  tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
  grid->addWidget(tree, 1, 2);
  return page;
}

QWidget* FixtureDialog::longPage() {
  auto* area = named(new QScrollArea, "area");
  auto* content = new QWidget;
  auto* column = new QVBoxLayout(content);
  auto* manyTabs = named(new QTabWidget, "manyTabs");
  for (int i = 0; i < 30; ++i)
    manyTabs->addTab(new QWidget, text("Sheet %1").arg(i));
  manyTabs->setMaximumWidth(400);
  column->addWidget(manyTabs);
  for (int i = 0; i < 60; ++i)
    column->addWidget(new CheckBox);
  column->addWidget(named(new QLineEdit, "last"));
  area->setWidget(content);
  area->setWidgetResizable(true);
  return area;
}

QWidget* FixtureDialog::buttonRow() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  const auto add = [&](QPushButton* button, const char* caption, auto slot) {
    button->setText(text(caption));
    connect(button, &QPushButton::clicked, this, slot);
    layout->addWidget(button);
  };
  add(new PushButton(nullptr, "add"), "&Add…", [this] { note(text("add")); });
  add(new PushButton(nullptr, "ask"), "As&k", [this] {
    const auto answer = QMessageBox::question(this, text("Sure?"), text("Really do it?"),
                                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    note(answer == QMessageBox::Yes ? text("yes") : text("no"));
  });
  add(new PushButton(nullptr, "nested"), "Nested", [this] {
    FixtureDialog inner(this);
    inner.setWindowTitle(text("Inner"));
    note(text("inner=%1").arg(inner.exec()));
  });
  add(new PushButton(nullptr, "nonModal"), "Non-modal", [this] { askNonModal(); });
  add(new PushButton(nullptr, "file"), "File",
      [this] { note(text("file=") + QFileDialog::getOpenFileName(this, text("Open"))); });
  add(new PushButton(nullptr, "files"), "Files", [this] {
    const QStringList paths = QFileDialog::getOpenFileNames(this, text("Open several"));
    note(text("files=%1").arg(paths.size()));
  });
  add(new PushButton(nullptr, "save"), "Save",
      [this] { note(text("save=") + QFileDialog::getSaveFileName(this, text("Save"))); });
  add(new PushButton(nullptr, "folder"), "Folder",
      [this] { note(text("folder=") + QFileDialog::getExistingDirectory(this, text("Folder"))); });
  add(new PushButton(nullptr, "later"), "Later", [this] {
    auto* box = new QMessageBox(QMessageBox::Information, text("Later"), text("Not at once"),
                                QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::finished, this, [this] { note(text("later")); });
    box->open();
  });
  add(new PushButton(nullptr, "colour"), "Colour",
      [this] { note(text("colour=") + QColorDialog::getColor(Qt::white, this).name()); });
  add(new PushButton(nullptr, "font"), "Font", [this] {
    bool isTaken = false;
    const QFont font = QFontDialog::getFont(&isTaken, QFont(text("DejaVu Sans"), 9), this);
    note(text("font=%1,%2,%3%4%5%6")
             .arg(font.family())
             .arg(font.pointSize())
             .arg(font.bold())
             .arg(font.italic())
             .arg(font.underline())
             .arg(font.strikeOut()));
  });
  add(new PushButton(nullptr, "input"), "Input",
      [this] { note(text("input=") + QInputDialog::getText(this, text("Input"), text("Name"))); });
  auto* menuButton = new PushButton(nullptr, "menuButton");
  auto* menu = named(new QMenu(menuButton), "menu");
  connect(menu->addAction(text("&Copy")), &QAction::triggered, this,
          [this] { note(text("copy")); });
  menu->addAction(text("Paste"))->setEnabled(false);
  menuButton->setMenu(menu);
  add(menuButton, "Menu", [] {});
  auto* off = new PushButton(nullptr, "off");
  off->setEnabled(false);
  add(off, "Off", [] {});
  auto* ok = new OkButton(row, "okButton");
  add(ok, "&Ok", [this] { accept(); });
  ok->setShortcut(QKeySequence(text("Alt+O")));
  add(new CancelButton(nullptr, "cancelButton"), "Cancel", [this] { reject(); });
  return row;
}

/// As dialogs do that let the user work in the host beside them: shown, with a loop of their own.
void FixtureDialog::askNonModal() {
  QDialog beside(this);
  beside.setObjectName(text("beside"));
  QEventLoop loop;
  connect(&beside, &QDialog::finished, &loop, &QEventLoop::quit);
  beside.show();
  loop.exec();
  note(text("beside"));
}

void FixtureDialog::keyPressEvent(QKeyEvent* event) {
  note(text("key%1").arg(event->key(), 0, 16));
  QDialog::keyPressEvent(event);
}

bool ScriptBridge::hasPopup() const {
  return QApplication::activePopupWidget() != nullptr;
}

void ScriptBridge::onDialog(const QJSValue& handler) {
  QJSEngine* engine = qjsEngine(this);
  DialogDriver::instance()->onDialog([engine, handler](QWidget* opened) {
    QJSValue function = handler;
    const QJSValue result = function.call({engine->newQObject(new ScriptDialog(opened))});
    if (result.isError())
      throw DriveError(result.toString());
  });
}
