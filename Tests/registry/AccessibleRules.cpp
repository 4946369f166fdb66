#include "AccessibleRules.h"

#include "Changes.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTextBrowser>
#include <QWidget>

#include <map>

// Qt tells of each change at once, also of one that befalls a widget while it is being made, and
// keeps what is answered then. Offscreen it tells nobody: this stands in front of its own function,
// and asks as a reader would.
void QAccessible::updateAccessibility(QAccessibleEvent* event) {
  if (event->object())
    event->accessibleInterface();
}

namespace {

using Role = QAccessible::Role;

/// What a class is to a reader; one derived from it is the same, where it has no row of its own.
const struct {
  const char* name;
  std::vector<Role> roles;
} classes[] = {
    {"Spinner", {Role::SpinBox}},
    {"Plotter", {Role::Chart}},
    {"DigitiserView", {Role::Graphic, Role::Chart}},
    {"QAbstractSpinBox", {Role::SpinBox}},
    {"QLineEdit", {Role::EditableText}},
    {"QPlainTextEdit", {Role::EditableText}},
    {"QTextBrowser", {Role::StaticText}},
    {"QTextEdit", {Role::EditableText}},
    {"QLabel", {Role::StaticText, Role::Graphic}},   // words, or a picture
    {"QPushButton", {Role::Button, Role::CheckBox}}, // one that stays down is a check box
    {"QToolButton", {Role::Button}},
    {"QRadioButton", {Role::RadioButton}},
    {"QCheckBox", {Role::CheckBox}},
    {"QGroupBox", {Role::CheckBox}}, // can have the focus where it can be checked
    {"QComboBox", {Role::ComboBox}},
    {"QSlider", {Role::Slider}},
    {"QTableView", {Role::Table}},
    {"QTreeView", {Role::Tree}},
    {"QListView", {Role::List}},
    {"QHeaderView", {Role::Table}},
    {"QTabWidget", {Role::Client}},
    {"QTabBar", {Role::PageTabList}},
    {"QScrollArea", {Role::Client}},
};

std::string nameOf(const QObject* object) {
  return object->metaObject()->className() +
         (QLatin1Char(' ') + object->objectName()).toStdString();
}

const std::vector<Role>* rolesOf(const QObject* widget) {
  for (const QMetaObject* meta = widget->metaObject(); meta; meta = meta->superClass())
    for (const auto& each : classes)
      if (qstrcmp(each.name, meta->className()) == 0)
        return &each.roles;
  return nullptr;
}

/// All of a dialog that a reader can come to; rows and cells are left to their views.
template <class Visit> void visit(QAccessibleInterface* accessible, const Visit& look) {
  look(accessible);
  for (int i = 0; i < accessible->childCount(); ++i)
    if (QAccessibleInterface* child = accessible->child(i); child && child->object())
      visit(child, look);
}

/// Where a reader is, as it says so by the way: the boxes and pages around.
QString placeOf(QAccessibleInterface* accessible) {
  QString place;
  for (QAccessibleInterface* in = accessible->parent(); in && in->object(); in = in->parent())
    if (in->role() == Role::Grouping || in->role() == Role::CheckBox ||
        in->role() == Role::SpinBox || in->role() == Role::ComboBox)
      place.prepend(in->text(QAccessible::Name) + QLatin1Char('/'));
  return place;
}

void setCells(QAbstractItemView* view) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(view);
  QAccessibleTableInterface* table = accessible ? accessible->tableInterface() : nullptr;
  const bool isEdited =
      view->isEnabled() && view->editTriggers() != QAbstractItemView::NoEditTriggers;
  for (int row = 0; table && row < std::min(table->rowCount(), 8); ++row)
    for (int column = 0; column < table->columnCount(); ++column) {
      const bool isOpen = view->model()->index(row, column).flags() & Qt::ItemIsEditable;
      QAccessibleInterface* cell = table->cellAt(row, column);
      if (cell && !(isEdited && isOpen))
        cell->setText(QAccessible::Value, QStringLiteral("reader's"));
    }
}

/// Everything by which a reader can change what it has come to.
void changeByReader(QAccessibleInterface* accessible) {
  accessible->setText(QAccessible::Value, QStringLiteral("77"));
  if (QAccessibleEditableTextInterface* text = accessible->editableTextInterface()) {
    text->insertText(0, QStringLiteral("7"));
    text->replaceText(0, 1, QStringLiteral("8"));
    text->deleteText(0, 1);
  }
  if (QAccessibleValueInterface* value = accessible->valueInterface())
    value->setCurrentValue(7.0);
  if (QAccessibleActionInterface* actions = accessible->actionInterface())
    for (const char* action : {"Press", "Toggle", "Increase", "Decrease", "ShowMenu"})
      actions->doAction(QString::fromLatin1(action));
}

/// A table is read cell by cell, each behind the name of its column; what a cell says when it is
/// pointed at is read as well.
void expectCells(QAbstractItemView* view) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(view);
  QAccessibleTableInterface* table = accessible ? accessible->tableInterface() : nullptr;
  for (int column = 0; table && column < table->columnCount(); ++column) {
    // What a column of marks is, is said to readers alone.
    const QVariant forReaders =
        view->model()->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole);
    EXPECT_TRUE(accessible->role() == Role::List || !forReaders.toString().isEmpty() ||
                !table->columnDescription(column).trimmed().isEmpty())
        << nameOf(view) << ", column " << column << " has no name for readers";
    for (int row = 0; row < std::min(table->rowCount(), 64); ++row) {
      const QVariant tip = view->model()->index(row, column).data(Qt::ToolTipRole);
      EXPECT_TRUE(tip.toString().isEmpty() ||
                  !table->cellAt(row, column)->text(QAccessible::Description).isEmpty())
          << nameOf(view) << " shows " << tip.toString().toStdString() << " and does not say it";
    }
  }
}

void expectRoles(const QWidget* dialog) {
  for (QWidget* widget : dialog->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus && !qobject_cast<QLabel*>(widget))
      continue;
    const std::vector<Role>* roles = rolesOf(widget);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
    ASSERT_TRUE(accessible) << nameOf(widget);
    EXPECT_TRUE(roles)
        << "what is " << nameOf(widget) << " to a reader? Add its class, or one that "
        << "it is derived from, to the table above with its QAccessible::Role (now 0x" << std::hex
        << accessible->role() << ")";
    EXPECT_TRUE(!roles || std::count(roles->begin(), roles->end(), accessible->role()))
        << nameOf(widget) << " has the role 0x" << std::hex << accessible->role()
        << " (was it made inside of what is off?)";
  }
}

void expectWords(QWidget* dialog) {
  visit(QAccessible::queryAccessibleInterface(dialog), [](QAccessibleInterface* accessible) {
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Help}) {
      const QString text = accessible->text(kind);
      EXPECT_FALSE(Qt::mightBeRichText(text))
          << nameOf(accessible->object()) << " is read as \"" << text.toStdString() << '"';
    }
  });
}

int expectOffStays(QWidget* dialog) {
  int off = 0;
  const QString before = stateOf(dialog);
  for (QWidget* widget : dialog->findChildren<QWidget*>()) {
    if (auto* view = qobject_cast<QAbstractItemView*>(widget))
      setCells(view);
    if (qobject_cast<QTextBrowser*>(widget)) // a viewer: what is put into it goes nowhere
      continue;
    if (!widget->isEnabled() || widget->property("readOnly").toBool()) {
      ++off;
      changeByReader(QAccessible::queryAccessibleInterface(widget));
    }
    EXPECT_EQ(stateOf(dialog).toStdString(), before.toStdString())
        << "a reader has changed " << nameOf(widget);
  }
  return off;
}

} // namespace

void expectNames(QWidget* dialog) {
  std::map<QString, QObject*> named;
  visit(QAccessible::queryAccessibleInterface(dialog), [&](QAccessibleInterface* accessible) {
    const QString name = accessible->text(QAccessible::Name);
    const QAccessible::State state = accessible->state();
    auto* view = qobject_cast<QAbstractItemView*>(accessible->object());
    if (state.invisible || !(view ? view->isVisible() : state.focusable) ||
        accessible->object()->inherits("QTabBar"))
      return;
    EXPECT_FALSE(name.trimmed().isEmpty())
        << nameOf(accessible->object()) << " in " << nameOf(accessible->object()->parent())
        << " has no name for readers";
    if (const auto* combo = qobject_cast<QComboBox*>(accessible->object())) {
      EXPECT_EQ(accessible->text(QAccessible::Value), combo->currentText());
      EXPECT_NE(name, combo->currentText()) << nameOf(combo) << " is called by what it shows";
    }
    if (view)
      expectCells(view);
    QObject*& first = named[placeOf(accessible) + name + QString::number(accessible->role())];
    EXPECT_FALSE(first) << nameOf(accessible->object()) << " is called \"" << name.toStdString()
                        << "\" as is " << nameOf(first);
    first = accessible->object();
  });
}

int expectReadable(QWidget* dialog) {
  expectRoles(dialog);
  expectNames(dialog);
  expectWords(dialog);
  return expectOffStays(dialog);
}
