#include "HostWidgets/Buttons.h"
#include "HostWidgets/CheckBox.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/EditBox.h"
#include "HostWidgets/GroupBox.h"
#include "HostWidgets/Label.h"
#include "HostWidgets/ParameterView.h"
#include "HostWidgets/RadioButton.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"
#include "HostWidgets/TextEdit.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace {

template <typename Widget> std::unique_ptr<QWidget> make() {
  return std::make_unique<Widget>(nullptr);
}

template <typename Widget> std::unique_ptr<QWidget> makeNamed() {
  EXPECT_EQ(Widget(nullptr, nullptr).objectName(), QString());
  return std::make_unique<Widget>(nullptr, "given");
}

TEST(Widgets, EveryClassShowsItsBindingToForms) {
  const std::pair<std::unique_ptr<QWidget> (*)(), const char*> kinds[] = {
      {makeNamed<Spinner>, "realValue stringValue precision min max increment engMode step125"},
      {makeNamed<EditBox>, "stringValue"},
      {makeNamed<TextEdit>, "stringValue"},
      {makeNamed<ComboBox>, "realValue stringValue itemsElementIndex itemsStride"},
      {makeNamed<CheckBox>, "realValue stringValue"},
      {make<RadioButton>, "realValue stringValue"},
      {make<RadioGroup>, "realValue stringValue selectedId mapping"},
      {makeNamed<Label>, "stringValue info"},
      {makeNamed<GroupBox>, "realValue stringValue"},
      {makeNamed<ParameterView>, "nameArgIndex"},
      {makeNamed<PushButton>, ""},
      {makeNamed<OkButton>, ""},
      {makeNamed<CancelButton>, ""},
  };
  for (const auto& [create, properties] : kinds) {
    const std::unique_ptr<QWidget> widget = create();
    const QMetaObject* meta = widget->metaObject();
    SCOPED_TRACE(meta->className());
    const bool isNamed = create != make<RadioButton> && create != make<RadioGroup>;
    EXPECT_EQ(widget->objectName(), isNamed ? QStringLiteral("given") : QString());
    EXPECT_TRUE(widget->property("isKvDialogWidget").toBool());
    auto* binding = dynamic_cast<KV_FunctionDef*>(widget.get());
    ASSERT_TRUE(binding);
    const std::pair<const char*, const std::int32_t*> numbers[] = {
        {"argIndex", &binding->argIndex},
        {"elementIndex", &binding->elementIndex},
        {"outElementIndex", &binding->outElementIndex},
    };
    for (const auto& [name, field] : numbers) {
      EXPECT_EQ(widget->property(name), QVariant(-1));
      EXPECT_TRUE(widget->setProperty(name, 7) && *field == 7) << name;
    }
    for (const QByteArray& name : QByteArray(properties).split(' ')) {
      const int index = meta->indexOfProperty(name);
      EXPECT_TRUE(name.isEmpty() || (index >= 0 && meta->property(index).isWritable()))
          << name.constData();
    }
  }
}

TEST(Widgets, FlagsAgree) {
  CheckBox check;
  RadioButton radio;
  GroupBox group;
  group.setCheckable(true);
  const std::pair<const char*, int> texts[] = {
      {"1", 1}, {"x", 1}, {"FALSE", 0}, {"", 0},    {" True ", 1},
      {"0", 0}, {"2", 0}, {"true", 1},  {"yes", 1}, {"false", 0}};
  for (QWidget* widget : std::initializer_list<QWidget*>{&check, &radio, &group}) {
    SCOPED_TRACE(widget->metaObject()->className());
    for (const auto& [text, expected] : texts) {
      widget->setProperty("stringValue", QLatin1String(text));
      EXPECT_EQ(widget->property("realValue").toDouble(), expected) << text;
      EXPECT_EQ(widget->property("stringValue").toString(), QString::number(expected));
    }
    widget->setProperty("realValue", 0.5);
    EXPECT_EQ(widget->property("realValue").toDouble(), 1);
  }
  QWidget form;
  RadioButton first(&form), second(&form);
  first.setValue(1);
  second.setValue(1);
  EXPECT_EQ(first.value(), 0) << "neighbours exclude each other";
  second.setValue(0);
  EXPECT_EQ(second.value(), 0) << "a loaded 0 counts though one should stay checked";
}

/// A call with one argument, as a host hands it in.
struct Call {
  UserFunctionInterface block{};
  double real = 0;
  const char* text = nullptr;

  Call& operator()(double value) {
    real = value;
    block.argCount = 1;
    block.args[0] = {0, &real, nullptr, 1, UserReal, {}};
    return *this;
  }
  Call& operator()(const char* value) {
    text = value;
    block.argCount = 1;
    block.args[0] = {0, &text, nullptr, 1, UserString, {}};
    return *this;
  }
};

/// Blocks in which the element 0 of argument 0 is missing in one way or another.
void expectMissingElementsLeaveAlone(QWidget* widget) {
  auto* binding = dynamic_cast<KV_FunctionDef*>(widget);
  const QVariant before = widget->property("realValue");
  EXPECT_FALSE(binding->initialiseWidget(nullptr));
  const std::function<void(Call&)> damages[] = {
      [](Call& call) { call.block.argCount = 0; },
      [](Call& call) { call.block.argCount = -1; },
      [](Call& call) { call.block.args[0].count = 0; },
      [](Call& call) { call.block.args[0].data = nullptr; },
      [](Call& call) { call.block.args[0].type = UserOpaque; },
      [=](Call&) { binding->argIndex = -1; },
      [=](Call& call) { binding->argIndex = call.block.argCount = 40; },
      [=](Call&) { binding->elementIndex = 1; },
      [=](Call&) { binding->elementIndex = -1; },
  };
  for (const auto& damage : damages) {
    binding->argIndex = binding->elementIndex = 0;
    Call call;
    damage(call(1));
    EXPECT_FALSE(binding->initialiseWidget(&call.block));
    EXPECT_EQ(widget->property("realValue"), before);
  }
  binding->argIndex = binding->elementIndex = 0;
  for (const double value : {std::nan(""), HUGE_VAL, -1.0, 1e300})
    EXPECT_TRUE(binding->initialiseWidget(&Call()(value).block));
  for (const char* text : {static_cast<const char*>(nullptr), "\xff\xfe", "1e400", "nan", ""})
    EXPECT_TRUE(binding->initialiseWidget(&Call()(text).block));
  EXPECT_EQ(widget->property("realValue"), before);
}

TEST(ComboBox, LoadsAndSelects) {
  ComboBox combo;
  combo.loadStrings("zero|One|one|10|");
  EXPECT_EQ(combo.count(), 5);
  EXPECT_EQ(combo.itemText(4), QString());
  combo.loadStrings(nullptr);
  EXPECT_EQ(combo.count(), 0);
  combo.loadStrings("zero|One|one|10");
  const std::pair<const char*, int> texts[] = {{"one", 2}, {"ONE", 1}, {"10", 3},   {"0", 0},
                                               {"3", 3},   {"4", 3},   {"", 3},     {"two", 3},
                                               {"-1", 3},  {"2 ", 2},  {"1e300", 2}};
  for (const auto& [text, index] : texts) {
    combo.setStringValue(QLatin1String(text));
    EXPECT_EQ(combo.value(), index) << text;
  }
  combo.setValue(1);
  for (const double value : {-1.0, 4.0, 1e300, std::nan("")})
    combo.setValue(value);
  EXPECT_EQ(combo.currentText(), QStringLiteral("One"));
  combo.insertItem(QStringLiteral("last"), -1);
  combo.insertItem(QStringLiteral("very last"), 99);
  combo.insertItem(QStringLiteral("first"), 0);
  EXPECT_EQ(combo.itemText(6), QStringLiteral("very last"));
  EXPECT_EQ(combo.itemText(0), QStringLiteral("first"));
  expectMissingElementsLeaveAlone(&combo);
  EXPECT_TRUE(combo.initialiseWidget(&Call()(3).block));
  EXPECT_EQ(combo.currentText(), QStringLiteral("one"));

  combo.setEditable(true);
  combo.setStringValue(QStringLiteral("2N2222"));
  EXPECT_EQ(combo.property("stringValue").toString(), QStringLiteral("2N2222"));
  combo.setStringValue(QString());
  EXPECT_EQ(combo.currentText(), QString()) << "an empty text empties an edit";
}

TEST(ComboBox, TakesItemsFromItsArgument) {
  const char* texts[] = {"all", "small|big|", "", "1-5", "0-1", "", "5-inf", nullptr, ""};
  UserFunctionInterface block{};
  block.argCount = 2;
  block.args[1] = {0, texts, nullptr, 9, UserString, {}};
  const struct {
    int first, stride, selected;
    const char* items;
    const char* current;
  } cases[] = {
      {1, 0, 0, "small,big,", "small"},   // one text; the one of element 0 is none of it
      {2, 0, -1, "", ""},                 // an empty text gives none
      {0, 3, -1, "all,1-5,5-inf", "all"}, // rows of three: three boxes share them
      {1, 3, 4, "small|big|,0-1", "0-1"}, // the row that fills up is no item
      {2, 3, -1, "", ""},
      {3, 1000000, 3, "1-5", "1-5"},
      {8, 1, -1, "", ""},
      {9, 1, 3, "form", "form"}, // beyond the end: the form's own stay
      {-1, 1, 3, "form", "form"},
      {2147483647, 2147483647, 3, "form", "form"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.first) + " " + std::to_string(c.stride));
    ComboBox combo;
    combo.addItem(QStringLiteral("form"));
    combo.argIndex = 1;
    combo.elementIndex = c.selected;
    EXPECT_TRUE(combo.setProperty("itemsElementIndex", c.first));
    EXPECT_TRUE(combo.setProperty("itemsStride", c.stride));
    EXPECT_EQ(combo.initialiseWidget(&block), c.selected >= 0 || std::string(c.items) != "form");
    QStringList items;
    for (int i = 0; i < combo.count(); ++i)
      items.append(combo.itemText(i));
    EXPECT_EQ(items.join(QLatin1Char(',')).toStdString(), c.items);
    EXPECT_EQ(combo.currentText().toStdString(), c.current);
  }
  for (int i = 0; i < 2; ++i) { // no argument; one of numbers
    ComboBox combo;
    combo.addItem(QStringLiteral("form"));
    combo.argIndex = 1;
    combo.itemsElementIndex = 0;
    block.argCount = i ? 2 : 1;
    block.args[1].type = UserReal;
    EXPECT_FALSE(combo.initialiseWidget(&block));
    EXPECT_EQ(combo.count(), 1);
  }
}

// The edit has the focus, so that a reader of the focus hears its name.
TEST(Fields, NameReachesTheInnerEdit) {
  QWidget window;
  QLabel far(QStringLiteral("&Far <label>"), &window);
  QGroupBox box(QStringLiteral("Bo&x"), &window);
  auto* combo = new ComboBox(&box);
  combo->setEditable(true);
  combo->addItem(QStringLiteral("entry"));
  auto* spinner = new Spinner(&box);
  const auto nameOf = [](QWidget* field) {
    QWidget* edit = field->findChild<QLineEdit*>();
    return QAccessible::queryAccessibleInterface(edit)->text(QAccessible::Name).toStdString();
  };
  for (QWidget* field : {static_cast<QWidget*>(combo), static_cast<QWidget*>(spinner)}) {
    EXPECT_EQ(nameOf(field), "Box");
    far.setBuddy(field);
    EXPECT_EQ(nameOf(field), "Far <label>") << "given when the edit was there already";
    field->setAccessibleName(QStringLiteral("Own"));
    EXPECT_EQ(nameOf(field), "Own");
  }
  QAccessibleInterface* edit = QAccessible::queryAccessibleInterface(combo->lineEdit());
  EXPECT_EQ(edit->text(QAccessible::Value), QStringLiteral("entry"));
  edit->setText(QAccessible::Value, QStringLiteral("other"));
  EXPECT_EQ(combo->currentText(), QStringLiteral("other"));
  ASSERT_TRUE(edit->textInterface() && edit->editableTextInterface());
  edit->editableTextInterface()->replaceText(0, 2, QStringLiteral("fa"));
  EXPECT_EQ(edit->textInterface()->text(0, edit->textInterface()->characterCount()),
            QStringLiteral("faher"));
  EXPECT_TRUE(edit->state().editable && edit->state().focusable);
}

/// Everything by which a reader can change a widget and its parts.
void changeByReader(QWidget* widget) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
  if (face->valueInterface())
    face->valueInterface()->setCurrentValue(99);
  face->setText(QAccessible::Value, QStringLiteral("5"));
  if (QAccessibleEditableTextInterface* text = face->editableTextInterface()) {
    text->insertText(0, QStringLiteral("7"));
    text->replaceText(0, 1, QStringLiteral("8"));
    text->insertText(99, QStringLiteral("4")); // beyond the end is the end
    text->deleteText(-1, 1);
  }
  if (QAccessibleActionInterface* actions = face->actionInterface())
    actions->doAction(QStringLiteral("Toggle"));
  for (int i = 0; i < face->childCount(); ++i)
    if (auto* part = qobject_cast<QWidget*>(face->child(i)->object()))
      if (!part->isWindow())
        changeByReader(part);
}

TEST(Fields, AReaderChangesWhatTheUserCould) {
  const struct {
    const char* name;
    std::unique_ptr<QWidget> (*make)();
    const char* property;
    const char* changed;
    bool canBeReadOnly;
  } fields[] = {{"edit", make<EditBox>, "text", "54", true},
                {"page", make<TextEdit>, "plainText", "54", true},
                {"spinner", make<Spinner>, "text", "54", false},
                {"combo", make<ComboBox>, "currentText", "54", false},
                {"box", make<GroupBox>, "checked", "true", false}};
  for (const auto& field : fields)
    for (const bool isOff : {false, true})
      for (const bool isReadOnly : {false, true}) {
        SCOPED_TRACE(std::string(field.name) + (isOff ? ", off" : "") +
                     (isReadOnly ? ", read only" : ""));
        if (isReadOnly && !field.canBeReadOnly)
          continue;
        QWidget window;
        QWidget* widget = field.make().release();
        widget->setParent(&window);
        widget->setProperty("editable", true);
        widget->setProperty("checkable", true);
        widget->setProperty("checked", false);
        widget->setProperty("readOnly", isReadOnly);
        widget->setEnabled(!isOff);
        const QString before = widget->property(field.property).toString();
        changeByReader(widget);
        EXPECT_EQ(widget->property(field.property).toString(),
                  isOff || isReadOnly ? before : QLatin1String(field.changed));
      }
}

TEST(ComboBox, IsCalledByItsLabelAndItsEntriesStay) {
  QWidget window;
  QLabel label(QStringLiteral("&Family"), &window);
  auto* combo = new ComboBox(&window);
  label.setBuddy(combo);
  combo->loadStrings("CMOS|TTL");
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(combo);
  EXPECT_EQ(face->role(), QAccessible::ComboBox);
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Family"));
  EXPECT_EQ(face->text(QAccessible::Value), QStringLiteral("CMOS"));
  ASSERT_EQ(face->childCount(), 1);
  EXPECT_EQ(face->indexOfChild(face->child(0)), 0);
  face->child(0)->child(1)->setText(QAccessible::Value, QStringLiteral("other"));
  EXPECT_EQ(combo->itemText(1), QStringLiteral("TTL"));
  for (const bool isOn : {false, true}) {
    combo->setEnabled(isOn);
    face->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(combo->view()->isVisible(), isOn);
  }
  face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(combo->view()->isVisible());
}

TEST(ComboBox, WheelTurnsOnlyWithTheFocus) {
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* other = new EditBox;
  auto* combo = new ComboBox;
  combo->loadStrings("a|b|c");
  layout->addWidget(other);
  layout->addWidget(combo);
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  for (QWidget* focus : std::initializer_list<QWidget*>{other, combo}) {
    focus->setFocus();
    QWheelEvent event(QPointF(5, 5), combo->mapToGlobal({5, 5}), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &event);
    EXPECT_EQ(combo->currentIndex(), focus == combo ? 1 : 0);
    EXPECT_TRUE(focus->hasFocus());
  }
}

TEST(ComboBox, LeavesCtrlTabToThePages) {
  QTabWidget pages;
  auto* combo = new ComboBox;
  combo->loadStrings("a|b");
  pages.addTab(combo, QStringLiteral("first"));
  pages.addTab(new QWidget, QStringLiteral("second"));
  for (bool editable : {false, true}) {
    combo->setEditable(editable);
    pages.setCurrentIndex(0);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier, QStringLiteral("\t"));
    QApplication::sendEvent(combo, &event);
    EXPECT_EQ(pages.currentIndex(), 1) << (editable ? "editable" : "a list");
  }
}

QStringList captions(const RadioGroup& group) {
  QStringList texts;
  for (const QRadioButton* button : group.buttons())
    texts.append(button->text());
  return texts;
}

RadioButton* addButton(QWidget* parent, const char* text) {
  auto* button = new RadioButton(parent);
  button->setText(QLatin1String(text));
  return button;
}

TEST(RadioGroup, PositionsAreReadAsAPage) {
  const QStringList expected = QStringLiteral("A B C D").split(QLatin1Char(' '));
  // Each makes the buttons in another order than they are read in.
  const std::pair<const char*, std::function<void(RadioGroup*)>> forms[] = {
      {"grid",
       [](RadioGroup* group) {
         auto* grid = new QGridLayout(group);
         grid->addWidget(addButton(group, "D"), 1, 1);
         grid->addWidget(addButton(group, "B"), 0, 1);
         grid->addWidget(addButton(group, "C"), 1, 0);
         grid->addWidget(addButton(group, "A"), 0, 0);
       }},
      {"two columns, nested",
       [](RadioGroup* group) {
         auto* row = new QHBoxLayout(group);
         for (const auto& [top, bottom] : {std::pair{"A", "C"}, std::pair{"B", "D"}}) {
           auto* holder = new QWidget;
           auto* column = new QVBoxLayout(holder);
           auto* lower = addButton(holder, bottom);
           column->addWidget(addButton(holder, top));
           column->addWidget(lower);
           row->addWidget(holder);
         }
       }},
      {"fixed places, rows not level",
       [](RadioGroup* group) {
         addButton(group, "C")->setGeometry(10, 50, 60, 20);
         addButton(group, "B")->setGeometry(80, 8, 60, 20);
         addButton(group, "D")->setGeometry(80, 53, 60, 20);
         addButton(group, "A")->setGeometry(10, 12, 60, 20);
       }},
      {"no places",
       [](RadioGroup* group) {
         for (const char* text : {"A", "B", "C", "D"})
           addButton(group, text);
       }},
      {"one hidden",
       [](RadioGroup* group) {
         auto* column = new QVBoxLayout(group);
         auto* last = addButton(group, "D");
         for (const char* text : {"A", "B", "C"})
           column->addWidget(addButton(group, text));
         column->addWidget(last);
         last->hide();
       }},
  };
  for (const auto& [name, build] : forms)
    for (const bool mirrored : {false, true}) {
      SCOPED_TRACE(name);
      QDialog dialog;
      dialog.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
      auto* layout = new QVBoxLayout(&dialog);
      auto* group = new RadioGroup(&dialog);
      group->setMinimumSize(200, 100);
      group->setSelectedId(2);
      build(group);
      layout->addWidget(group);
      EXPECT_EQ(group->selectedId(), 2);
      EXPECT_EQ(captions(*group), expected) << "before it is shown";
      dialog.show();
      EXPECT_EQ(captions(*group), expected) << "shown";
      group->buttons().at(0)->hide();
      QCoreApplication::processEvents();
      EXPECT_EQ(captions(*group), expected) << "a hidden one keeps its position";
      group->setSelectedId(3);
      group->setSelectedId(17);
      EXPECT_EQ(group->selectedId(), 3);
      int checked = 0;
      for (const QRadioButton* button : group->buttons())
        checked += button->isChecked();
      EXPECT_EQ(checked, 1) << "one choice in all containers";
      group->setSelectedId(-1);
      EXPECT_EQ(group->value(), -1);
    }
}

TEST(RadioGroup, MapsPositionsToValues) {
  RadioGroup group;
  group.setMapping(QStringLiteral("0, 4,1,3,2"));
  group.setValue(4); // before there are buttons
  auto* column = new QVBoxLayout(&group);
  for (int i = 0; i < 6; ++i)
    column->addWidget(addButton(&group, "x"));
  EXPECT_EQ(group.selectedId(), 1);
  const int values[] = {0, 4, 1, 3, 2, 5};
  for (int position = 0; position < 6; ++position) {
    group.setSelectedId(position);
    EXPECT_EQ(group.value(), values[position]);
    group.setSelectedId(-1);
    group.setValue(values[position]);
    EXPECT_EQ(group.selectedId(), position);
    group.setSelectedId(-1);
    group.setStringValue(QString::number(values[position]));
    EXPECT_EQ(group.stringValue(), QString::number(values[position]));
  }
  for (const double value : {-1.0, 6.0, 1.5, 1e300, std::nan("")})
    group.setValue(value);
  group.setStringValue(QStringLiteral("three"));
  EXPECT_EQ(group.value(), 5);
  expectMissingElementsLeaveAlone(&group);
  EXPECT_TRUE(group.initialiseWidget(&Call()("3").block));
  EXPECT_EQ(group.selectedId(), 3);
  group.setMapping(QStringLiteral("7,,x"));
  EXPECT_EQ(group.value(), 3);
  group.setSelectedId(2);
  EXPECT_EQ(group.value(), 2) << "an entry that is not a number stands for its position";

  RadioGroup other;
  other.setSelectedId(1); // as a form does before it makes the buttons
  RadioButton* first = addButton(&other, "first");
  addButton(&other, "second");
  first->setChecked(true);
  EXPECT_EQ(other.selectedId(), 0) << "the later word counts";
}

TEST(RadioGroup, TabComesToTheCheckedButton) {
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* group = new RadioGroup(&dialog);
  layout->addWidget(group);
  auto* column = new QVBoxLayout(group);
  for (const char* text : {"A", "B", "C"})
    column->addWidget(addButton(group, text));
  const auto stops = [group] {
    std::vector<bool> all;
    for (const QRadioButton* button : group->buttons())
      all.push_back(button->focusPolicy() & Qt::TabFocus);
    return all;
  };
  group->setSelectedId(2);
  dialog.show();
  EXPECT_EQ(stops(), (std::vector<bool>{false, false, true}));
  group->setSelectedId(0);
  EXPECT_EQ(stops(), (std::vector<bool>{true, false, false}));
  group->buttons().at(0)->hide();
  group->setSelectedId(0);
  EXPECT_EQ(stops(), (std::vector<bool>{true, true, true})) << "one that is not shown is no stop";
}

TEST(RadioGroup, TellsWhatTheUserChose) {
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* group = new RadioGroup(&dialog);
  layout->addWidget(group);
  auto* column = new QVBoxLayout(group);
  for (const char* text : {"A", "B", "C"})
    column->addWidget(addButton(group, text));
  auto* inner = new RadioGroup(group);
  (new QVBoxLayout(inner))->addWidget(addButton(inner, "inner"));
  column->addWidget(inner);
  std::vector<int> clicks;
  QObject::connect(group, &RadioGroup::clicked, &dialog, [&](int id) { clicks.push_back(id); });
  group->setSelectedId(0);
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  group->setValue(2);
  group->setSelectedId(1);
  EXPECT_EQ(clicks, std::vector<int>()) << "a program's choice is no click";
  EXPECT_EQ(group->buttons().size(), 3);

  QTest::mouseClick(group->buttons().at(2), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(group->buttons().at(2), Qt::Key_Up);
  QTest::mouseClick(inner->buttons().at(0), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(clicks, (std::vector<int>{2, 1}));
  EXPECT_EQ(group->selectedId(), 1);
  EXPECT_EQ(inner->selectedId(), 0);

  delete group->buttons().at(0);
  auto* late = addButton(group, "late");
  column->addWidget(late);
  late->show();
  QCoreApplication::processEvents();
  QTest::mouseClick(late, Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(clicks.back(), 2);
  EXPECT_EQ(captions(*group),
            QStringList({QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("late")}));
}

TEST(Label, InformationIsReachedByKeyAndMouse) {
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new Label;
  auto* edit = new EditBox;
  label->setText(QStringLiteral("&Gap"));
  label->setBuddy(edit);
  layout->addWidget(label);
  layout->addWidget(edit);
  const QSize plain = label->sizeHint();
  EXPECT_EQ(label->focusPolicy(), Qt::NoFocus);
  label->setInfo(QStringLiteral("The <b>air gap</b> of the core."));
  EXPECT_GT(label->sizeHint().width(), plain.width());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Description),
            QStringLiteral("The air gap of the core."));
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_Backtab);
  EXPECT_TRUE(label->hasFocus());

  const auto popup = [] { return QApplication::activePopupWidget(); };
  for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F1}) {
    QTest::keyClick(label, static_cast<Qt::Key>(key));
    ASSERT_TRUE(popup()) << key;
    QTest::keyClick(popup(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !popup(); })) << key;
    EXPECT_TRUE(dialog.isVisible());
  }
  // The mark stands right behind the text.
  QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(plain.width() / 2, label->height() / 2));
  EXPECT_FALSE(popup());
  const int behind = (plain.width() + label->sizeHint().width()) / 2;
  QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(behind + 2, label->height() / 2));
  ASSERT_TRUE(popup());
  popup()->close();

  label->setInfo(QString());
  EXPECT_EQ(label->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(label->sizeHint(), plain);
  label->showInfo();
  EXPECT_FALSE(popup());
}

TEST(Label, LinkInTheCaptionStandsForTheMark) {
  const QString caption = QStringLiteral("Gap <a %1>why?</a>");
  const struct {
    const char* link;
    bool isMark;
  } cases[] = {
      {"href=ref", true}, {"href=\"ref\"", true}, {"href=reference.html", false}, {"", false}};
  for (const auto& c : cases) {
    Label label;
    label.setText(caption.arg(QString::fromLatin1(c.link)));
    const QSize plain = label.sizeHint();
    label.setInfo(QStringLiteral("Of the core."));
    EXPECT_EQ(label.sizeHint() == plain, c.isMark) << c.link;
    label.show();
    QTest::mouseClick(&label, Qt::LeftButton, {}, QPoint(plain.width() - 6, plain.height() / 2));
    QWidget* popup = QApplication::activePopupWidget();
    EXPECT_EQ(popup != nullptr, c.isMark) << c.link;
    if (popup)
      popup->close();
  }
}

TEST(Edits, KeepWhatTheyGet) {
  EditBox box;
  const QString longText(100000, QLatin1Char('x'));
  box.setProperty("stringValue", longText);
  EXPECT_EQ(box.property("stringValue").toString(), longText);

  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* text = new TextEdit;
  auto* next = new EditBox;
  layout->addWidget(text);
  layout->addWidget(next);
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  text->setFocus();
  text->setProperty("stringValue", QStringLiteral("a\nb\tc"));
  QTest::keyClick(text, Qt::Key_Tab);
  EXPECT_TRUE(next->hasFocus());
  EXPECT_EQ(text->property("stringValue").toString(), QStringLiteral("a\nb\tc"));
}

} // namespace
