#include "HostWidgets/Spinner.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A dialog as the user has it: a labelled spinner between two other fields, and a default button.
class SpinnerTest : public testing::Test {
protected:
  SpinnerTest() {
    auto* layout = new QVBoxLayout(&dialog);
    before = new QLineEdit;
    label = new QLabel(QStringLiteral("&Resistance"));
    spinner = new Spinner(nullptr, "resistance");
    after = new QLineEdit;
    ok = new QPushButton(QStringLiteral("&Ok"));
    ok->setDefault(true);
    for (QWidget* widget : std::initializer_list<QWidget*>{before, label, spinner, after, ok})
      layout->addWidget(widget);
    label->setBuddy(spinner);
    edit = spinner->findChild<QLineEdit*>();
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(spinner, &Spinner::changed, &dialog,
                     [this](const QString& text) { log.append(text); });
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    before->setFocus();
  }

  void enter() { spinner->setFocus(Qt::TabFocusReason); }
  void leave() { after->setFocus(Qt::TabFocusReason); }
  void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = QString()) {
    for (const QEvent::Type kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(kind, code, modifiers, text);
      if (QWidget* focus = QApplication::focusWidget()) // a key may have closed the dialog
        QApplication::sendEvent(focus, &event);
    }
  }
  void type(const QString& text) {
    enter();
    spinner->selectAll();
    if (text.isEmpty())
      key(Qt::Key_Delete);
    for (const QChar character : text)
      key(Qt::Key_unknown, Qt::NoModifier, QString(character));
  }
  bool wheel(int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             Qt::ScrollPhase phase = Qt::NoScrollPhase) {
    const QPointF position = edit->rect().center();
    QWheelEvent event(position, edit->mapToGlobal(position.toPoint()), QPoint(), QPoint(0, delta),
                      Qt::NoButton, modifiers, phase, false);
    event.ignore();
    QApplication::sendEvent(spinner, &event);
    return event.isAccepted();
  }
  QPoint arrow(QStyle::SubControl control) {
    QStyleOptionSpinBox option;
    option.initFrom(spinner);
    option.subControls = QStyle::SC_All;
    return spinner->style()->subControlRect(QStyle::CC_SpinBox, &option, control, spinner).center();
  }
  QStringList taken() { return std::exchange(log, QStringList()); }

  QDialog dialog;
  QLineEdit* before;
  QLabel* label;
  Spinner* spinner;
  QLineEdit *edit, *after;
  QPushButton* ok;
  QStringList log; ///< what `changed` gave
};

QStringList list(std::initializer_list<const char*> texts) {
  QStringList result;
  for (const char* text : texts)
    result.append(QString::fromUtf8(text));
  return result;
}

TEST_F(SpinnerTest, TypedTextsCountAtOnceAndAreReportedOnce) {
  struct Case {
    const char* typed;
    double value;
    bool acceptable;
  } const cases[] = {
      {"4.7k", 4.7e3, true},    {"2Meg", 2e6, true},       {"1e-9", 1e-9, true},
      {"  10kOhm ", 1e4, true}, {"{2*R1}", 0, true},       {" { a } ", 0, true},
      {"-3m", -3e-3, true},     {"{", -3e-3, false},       {"abc", -3e-3, false},
      {"1..2", -3e-3, false},   {"", -3e-3, false},        {"nan", -3e-3, false},
      {"inf", -3e-3, false},    {"4,7", -3e-3, false},     {"00012", 12, true},
      {"\xc2\xb5", 12, false},  {"1\xc2\xb5", 1e-6, true}, {"}{", 1e-6, false},
  };
  QString reported = spinner->text();
  for (const Case& row : cases) {
    const QString text = QString::fromUtf8(row.typed);
    QSignalSpy keystrokes(spinner, &Spinner::textChanged);
    type(text);
    EXPECT_EQ(keystrokes.count(), std::max(1, text.size())) << row.typed;
    EXPECT_EQ(taken(), QStringList()) << "reported while typing " << row.typed;
    EXPECT_EQ(spinner->text(), text);
    EXPECT_DOUBLE_EQ(spinner->value(), row.value) << row.typed;
    EXPECT_EQ(spinner->isAcceptable(), row.acceptable) << row.typed;
    EXPECT_EQ(spinner->isExpression(), row.acceptable && text.contains(QLatin1Char('{')));
    leave();
    EXPECT_EQ(taken(), QStringList(text));
    EXPECT_EQ(spinner->text(), text) << "typing never rewrites";
  }
}

TEST_F(SpinnerTest, ReturnFinishesAndReachesTheDefaultButton) {
  QSignalSpy accepted(&dialog, &QDialog::accepted);
  type(QStringLiteral("5000"));
  spinner->max = 1000;
  key(Qt::Key_Return);
  EXPECT_EQ(taken(), list({"1k"}));
  EXPECT_EQ(accepted.count(), 1);
}

TEST_F(SpinnerTest, EscapeReachesTheDialogAndReportsNothing) {
  QSignalSpy rejected(&dialog, &QDialog::rejected);
  type(QStringLiteral("12"));
  key(Qt::Key_Escape);
  EXPECT_EQ(rejected.count(), 1);
  EXPECT_EQ(taken(), QStringList());
}

TEST_F(SpinnerTest, LimitsHoldOnLeaving) {
  spinner->min = -10;
  spinner->max = 1000;
  struct Case {
    const char* typed;
    const char* left;
  } const cases[] = {
      {"5000", "1k"}, {"1e400", "1000"},    {"-1e400", "-10"}, {"999", "999"},
      {"-11", "-10"}, {"{9999}", "{9999}"}, {"2k", "1k"},
  };
  for (const Case& row : cases) {
    spinner->engMode = qstrcmp(row.typed, "1e400") != 0;
    type(QLatin1String(row.typed));
    leave();
    EXPECT_EQ(spinner->text(), QLatin1String(row.left)) << row.typed;
    EXPECT_LE(taken().size(), 1) << row.typed;
  }
  EXPECT_EQ(spinner->value(), 1000);
}

TEST_F(SpinnerTest, LimitsMoveTheValueAtOnce) {
  spinner->setValue(5);
  spinner->setMin(10);
  spinner->setMax(7); // contradicts: the larger limit counts
  spinner->setMin(std::nan(""));
  spinner->setMax(std::nan(""));
  EXPECT_EQ(spinner->value(), 7);
  EXPECT_EQ(taken(), list({"5", "10", "7"}));
  spinner->setMin(-infinity);
  spinner->setMax(infinity);
  spinner->setValue(infinity);
  EXPECT_TRUE(std::isfinite(spinner->value()));
  spinner->setText(QStringLiteral("{x}"));
  taken();
  spinner->setMin(3);
  spinner->checkMaxMin();
  EXPECT_EQ(spinner->text() + taken().join(QString()), QStringLiteral("{x}"));
}

TEST_F(SpinnerTest, LinkedLimitsSettle) {
  Spinner other;
  QObject::connect(spinner, &Spinner::changed, &other, [&] { other.setMin(spinner->value()); });
  QObject::connect(&other, &Spinner::changed, spinner, [&] { spinner->setMax(other.value()); });
  other.setValue(3);
  spinner->setValue(9);
  EXPECT_EQ(spinner->value(), 3);
  type(QStringLiteral("2.5"));
  leave();
  EXPECT_EQ(other.min, 2.5);
  EXPECT_EQ(other.value(), 3);
}

TEST_F(SpinnerTest, ProgramTextsAndValues) {
  spinner->setPrecision(6);
  spinner->setValue(1.23456789);
  EXPECT_EQ(spinner->text(), QStringLiteral("1.23457"));
  EXPECT_EQ(spinner->value(), 1.23456789) << "as set, not as shown";
  spinner->setValue(1.23456789);
  EXPECT_EQ(taken(), list({"1.23457"}));
  spinner->setValue(1.2345678);
  EXPECT_EQ(taken(), list({"1.23457"})) << "a value that moved is reported, if it shows or not";

  spinner->setText(QStringLiteral("1000m"));
  spinner->setValue(1);
  EXPECT_EQ(spinner->text(), QStringLiteral("1000m")) << "reads as the value: stays as given";
  spinner->setText(QStringLiteral("1000m"));
  spinner->setValue(std::nan(""));
  EXPECT_EQ(taken(), list({"1000m"}));

  spinner->setText(QStringLiteral("{a}"));
  spinner->setValue(0);
  EXPECT_EQ(spinner->text(), QStringLiteral("0"));
  spinner->setText(QString());
  EXPECT_EQ(spinner->text(), QString());
  EXPECT_EQ(taken(), list({"{a}", "0", ""}));

  spinner->setValue(47000);
  spinner->setEngMode(false);
  EXPECT_EQ(spinner->text(), QStringLiteral("47000"));
  spinner->setPrecision(1);
  EXPECT_EQ(spinner->text(), QStringLiteral("47000")) << "left of the point nothing is rounded";
  EXPECT_EQ(taken(), list({"47k"})) << "another notation is no change";

  const QString longText = QLatin1Char('{') + QString(100000, QLatin1Char('x')) + QLatin1Char('}');
  spinner->setText(longText);
  EXPECT_EQ(spinner->text(), longText);
}

TEST_F(SpinnerTest, NumbersThatNobodyTypedComeBackToTheLastDigit) {
  const struct {
    double value;
    const char* shownAsEng;
    const char* eng;
    const char* shownAsPlain;
    const char* plain;
  } cases[] = {
      {5.123456789e-12, "5.12346p", "5.123456789p", "5.12346e-12", "5.123456789e-12"},
      {123456789, "123.457Meg", "123.456789Meg", "123456789", "123456789"},
      {1099511627776, "1.09951T", "1.099511627776T", "1099511627776", "1099511627776"},
      {-123456.7891, "-123.457k", "-123.4567891k", "-123457", "-123456.7891"},
      {0.1 + 0.2, "300m", "300.00000000000004m", "0.3", "3.0000000000000004e-1"},
      {1e15, "1e15", "1e15", "1e15", "1e15"},
      {9999995, "10Meg", "9.999995Meg", "9999995", "9999995"},
      {1.7e99, "1.7e99", "1.7e99", "1.7e99", "1.7e99"},
  };
  spinner->setPrecision(6);
  for (const auto& row : cases)
    for (const bool eng : {true, false}) {
      spinner->setEngMode(eng);
      spinner->setValue(0);
      spinner->setValue(row.value);
      EXPECT_EQ(spinner->text(), QLatin1String(eng ? row.shownAsEng : row.shownAsPlain));
      EXPECT_EQ(spinner->stringValue(), QLatin1String(eng ? row.eng : row.plain));
      enter();
      leave();
      EXPECT_EQ(spinner->value(), row.value) << row.eng;
    }
  spinner->setEngMode(true);
  spinner->setText(QStringLiteral("5n")); // as a form has it
  spinner->setValue(5.1234567890123e-9);
  EXPECT_EQ(spinner->stringValue(), QStringLiteral("5.1234567890123n")) << "behind a given text";
  type(QStringLiteral("0300m"));
  EXPECT_EQ(spinner->stringValue(), QStringLiteral("0300m")) << "as typed";
}

TEST_F(SpinnerTest, WaysToWriteANumberThatEngineersHave) {
  const struct {
    const char* typed;
    double value;
    const char* left;
  } cases[] = {
      {"10 k", 1e4, "10k"},        {" 10  kHz ", 1e4, "10kHz"},
      {"20k Hz", 2e4, "20kHz"},    {"10 Ohm", 10, "10Ohm"},
      {"-4k7", -4700, "-4.7k"},    {"4K7", 4700, "4.7K"},
      {"1Meg5", 1.5e6, "1.5Meg"},  {"2n2", 2.2e-9, "2.2n"},
      {"1.5e3 V", 1500, "1.5e3V"}, {"3 \xc2\xb5", 3e-6, "3\xc2\xb5"},
  };
  for (const auto& row : cases) {
    type(QString::fromUtf8(row.typed));
    EXPECT_DOUBLE_EQ(spinner->value(), row.value) << row.typed;
    EXPECT_EQ(spinner->stringValue(), QString::fromUtf8(row.left)) << "before it is left";
    leave();
    EXPECT_EQ(spinner->text(), QString::fromUtf8(row.left));
    EXPECT_EQ(taken(), QStringList(QString::fromUtf8(row.left)));
  }
  spinner->setText(QStringLiteral("10 k"));
  enter();
  leave();
  EXPECT_EQ(spinner->stringValue(), QStringLiteral("10 k")) << "what a script gave goes back";
  spinner->setValue(7);
  for (const char* bad : {"4,7", "10 20", "k 10", "4k7k", "4.5k7", "1 0k", "10 k 5", "- 5", "4 k7",
                          "5 min", "1 Tesla", "2 T", "5 Ampere", "20 Ah"}) {
    type(QLatin1String(bad));
    leave();
    EXPECT_EQ(spinner->value(), 7) << bad;
    EXPECT_FALSE(spinner->isAcceptable()) << bad;
    EXPECT_EQ(spinner->text(), QLatin1String(bad));
  }
}

TEST_F(SpinnerTest, WhatDoesNotCountSaysWhatDoes) {
  const QColor good = edit->palette().color(QPalette::Text);
  spinner->setValue(4700);
  const struct {
    const char* typed;
    bool numbersOnly;
    const char* counting; ///< nothing where the text counts
  } cases[] = {{"4,7", false, "4.7k"}, {"4,7", true, "4.7k"},   {"{2*tpd}", false, nullptr},
               {"{2*tpd}", true, "0"}, {"4.7k", true, nullptr}, {"", false, nullptr},
               {"", true, "4.7k"}};
  for (const auto& row : cases) {
    spinner->setNumbersOnly(row.numbersOnly);
    type(QLatin1String(row.typed));
    leave();
    const QString said =
        QAccessible::queryAccessibleInterface(spinner)->text(QAccessible::Description);
    EXPECT_EQ(edit->palette().color(QPalette::Text) != good, row.counting != nullptr) << row.typed;
    EXPECT_EQ(edit->toolTip().isEmpty(), !row.counting);
    if (!row.counting)
      EXPECT_EQ(said, QString());
    else
      EXPECT_TRUE(said.endsWith(QLatin1String(row.counting) + QLatin1Char('.'))) << row.typed;
    spinner->setNumbersOnly(false);
    spinner->setValue(4700);
  }
  type(QStringLiteral("x"));
  spinner->setMax(10);
  EXPECT_TRUE(edit->toolTip().contains(QStringLiteral("10."))) << "the limit moved what counts";
}

TEST_F(SpinnerTest, UndoBringsBackTheNumberToItsLastDigit) {
  const double exact = 1.2345678901234567;
  const auto undo = [this] { key(Qt::Key_Z, Qt::ControlModifier, QStringLiteral("\x1a")); };
  const auto redo = [this] {
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, QStringLiteral("\x1a"));
  };
  spinner->setValue(exact);
  enter();
  key(Qt::Key_Up);
  key(Qt::Key_Up);
  EXPECT_EQ(spinner->value(), 5);
  undo();
  undo();
  EXPECT_EQ(spinner->value(), exact);
  redo();
  EXPECT_EQ(spinner->value(), 2);
  undo();
  leave();
  EXPECT_EQ(spinner->value(), exact);
  EXPECT_EQ(spinner->stringValue(), QStringLiteral("1.2345678901234567"));

  enter();
  key(Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
  undo();
  EXPECT_EQ(spinner->value(), exact) << "what was typed over it is undone";
  type(spinner->text());
  EXPECT_EQ(spinner->value(), 1.23456789012) << "what is typed is what it says";
  spinner->max = 10;
  type(QStringLiteral("500"));
  leave();
  EXPECT_EQ(spinner->value(), 10);
  enter();
  undo();
  EXPECT_EQ(spinner->text(), QStringLiteral("500")) << "a clamp can be undone";
  leave();
  EXPECT_EQ(spinner->value(), 10) << "and holds again";
}

TEST_F(SpinnerTest, NotationMayBeSetBehindTheValue) {
  spinner->setValue(47000);
  spinner->engMode = false;
  EXPECT_EQ(spinner->text(), QStringLiteral("47000"));
  spinner->engMode = true;
  dialog.hide();
  dialog.show();
  EXPECT_EQ(edit->text(), QStringLiteral("47k"));
  spinner->setText(QStringLiteral("1000m"));
  spinner->engMode = false;
  EXPECT_EQ(spinner->text(), QStringLiteral("1000m")) << "as typed";
}

TEST_F(SpinnerTest, WholeNumbers) {
  spinner->setWholeNumber(true);
  spinner->setValue(2.5);
  EXPECT_EQ(spinner->value(), 3);
  spinner->setEngMode(false);
  spinner->setValue(2147479999);
  EXPECT_EQ(spinner->text(), QStringLiteral("2147479999")) << "a count is never rounded";
  type(QStringLiteral("6.7"));
  leave();
  EXPECT_EQ(spinner->text(), QStringLiteral("7"));
  spinner->max = 7.9;
  spinner->setValue(100);
  EXPECT_EQ(spinner->value(), 7);
  spinner->setValue(1);
  taken();
  spinner->pressDown();
  spinner->pressUp();
  spinner->step125 = false;
  spinner->increment = 0.25;
  spinner->pressUp();
  spinner->pressDown();
  EXPECT_EQ(taken(), list({"0", "1", "2", "1"}));
}

TEST_F(SpinnerTest, KeysStep) {
  struct Case {
    bool series;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* from;
    const char* to;
  } const cases[] = {
      {true, Qt::Key_Up, Qt::NoModifier, "4.7k", "5k"},
      {true, Qt::Key_Down, Qt::NoModifier, "4.7k", "2k"},
      {true, Qt::Key_PageUp, Qt::NoModifier, "4.7k", "47k"},
      {true, Qt::Key_PageDown, Qt::KeypadModifier, "4.7k", "470"},
      {true, Qt::Key_Up, Qt::ControlModifier, "1", "10"},
      {true, Qt::Key_Down, Qt::NoModifier, "1e-18", "0"},
      {true, Qt::Key_Up, Qt::NoModifier, "0", "200m"},
      {true, Qt::Key_Up, Qt::NoModifier, "900", "1k"},
      {true, Qt::Key_Up, Qt::NoModifier, "{a}", "{a}"},
      {false, Qt::Key_Up, Qt::NoModifier, "100m", "300m"},
      {false, Qt::Key_PageDown, Qt::NoModifier, "0.1", "-1.9"},
      {false, Qt::Key_Up, Qt::NoModifier, "1234567", "1.2345672Meg"},
      {false, Qt::Key_Up, Qt::NoModifier, "1.2345678", "1.4345678"},
      {false, Qt::Key_Up, Qt::NoModifier, "999.9", "1k"},
      {false, Qt::Key_Up, Qt::NoModifier, "5000000000", "5000000000"},
  };
  spinner->increment = 0.2;
  spinner->max = 5e9;
  for (const Case& row : cases) {
    spinner->max = qstrcmp(row.to, "1k") == 0 ? 1000 : 5e9;
    spinner->step125 = row.series;
    spinner->setText(QLatin1String(row.from));
    taken();
    enter();
    key(row.key, row.modifiers);
    EXPECT_EQ(spinner->text(), QLatin1String(row.to)) << row.from;
    EXPECT_EQ(taken(), qstrcmp(row.from, row.to) ? list({row.to}) : QStringList());
  }
}

TEST_F(SpinnerTest, StepsFinishWhatWasTyped) {
  type(QStringLiteral("9"));
  key(Qt::Key_Up);
  EXPECT_EQ(taken(), list({"10"}));
  key(Qt::Key_Comma, Qt::KeypadModifier, QStringLiteral(","));
  EXPECT_EQ(spinner->text(), QStringLiteral(".")) << "a keypad's comma is a point";
  type(QStringLiteral("x"));
  key(Qt::Key_Down);
  EXPECT_EQ(taken(), list({"5"})) << "from the last good number";
  leave();
  EXPECT_EQ(taken(), QStringList());
  enter();
  key(Qt::Key_Z, Qt::ControlModifier, QStringLiteral("\x1a"));
  EXPECT_EQ(spinner->text(), QStringLiteral("x")) << "a step can be undone";
  spinner->setValue(4.9999999999999);
  key(Qt::Key_Up);
  EXPECT_EQ(spinner->text(), QStringLiteral("10")) << "every step is seen";
}

TEST_F(SpinnerTest, WheelTurnsOnlyTheFocusedFieldAndAddsParts) {
  spinner->setValue(1);
  taken();
  EXPECT_FALSE(wheel(120)) << "the page scrolls on";
  enter();
  EXPECT_TRUE(wheel(50));
  EXPECT_TRUE(wheel(50));
  EXPECT_EQ(taken(), QStringList());
  wheel(20);
  EXPECT_EQ(taken(), list({"2"}));
  wheel(100);
  wheel(-30); // the other way: what was gathered is void
  wheel(-90);
  EXPECT_EQ(taken(), list({"1"}));
  wheel(240, Qt::ControlModifier);
  wheel(120, Qt::NoModifier, Qt::ScrollMomentum);
  EXPECT_EQ(taken(), list({"100"}));
  spinner->step125 = false;
  spinner->setMax(150);
  wheel(std::numeric_limits<int>::max());
  EXPECT_EQ(taken(), list({"150"}));
}

TEST_F(SpinnerTest, ArrowsStepAndRepeatFasterAndFaster) {
  spinner->step125 = false;
  spinner->max = 60;
  QTest::mouseClick(spinner, Qt::LeftButton, {}, arrow(QStyle::SC_SpinBoxUp));
  EXPECT_EQ(taken(), list({"1"}));
  EXPECT_EQ(QApplication::focusWidget(), edit);
  QTest::mouseClick(spinner, Qt::LeftButton, {}, arrow(QStyle::SC_SpinBoxDown));
  QTest::mouseClick(spinner, Qt::RightButton, {}, arrow(QStyle::SC_SpinBoxUp));
  EXPECT_EQ(taken(), list({"0"}));

  QTest::mousePress(spinner, Qt::LeftButton, {}, arrow(QStyle::SC_SpinBoxUp));
  ASSERT_TRUE(QTest::qWaitFor([&] { return spinner->value() >= 60; }, 8000));
  QTest::mouseRelease(spinner, Qt::LeftButton, {}, arrow(QStyle::SC_SpinBoxUp));
  EXPECT_EQ(log.mid(0, 3), list({"1", "2", "3"}));
  EXPECT_LT(log.size(), 40) << "later repeats are larger";
}

TEST_F(SpinnerTest, HeldArrowStopsBehindAModalDialog) {
  QDialog inner(&dialog);
  QObject::connect(spinner, &Spinner::changed, &inner, [&] {
    if (!inner.isVisible())
      inner.exec();
  });
  QTimer::singleShot(900, &inner, &QDialog::reject);
  QTest::mousePress(spinner, Qt::LeftButton, {}, arrow(QStyle::SC_SpinBoxUp));
  QTest::qWait(300);
  EXPECT_EQ(taken(), list({"1"}));
}

TEST_F(SpinnerTest, OwnerTakesOverTheStepping) {
  int asked = 0;
  QObject::connect(spinner, &Spinner::incrementing, &dialog, [&](double* value) {
    ++asked;
    *value *= 3;
  });
  spinner->setValue(2);
  taken();
  enter();
  key(Qt::Key_Up);
  key(Qt::Key_PageUp);
  EXPECT_EQ(asked, 2);
  key(Qt::Key_Down); // nobody took this direction
  EXPECT_EQ(taken(), list({"6", "18", "10"}));

  QObject::connect(spinner, &Spinner::decrementing, &dialog, [](double* value) {
    if (*value == 10)
      *value = std::nan("");
    else if (*value > 25)
      *value = -infinity;
  });
  spinner->setMin(-4);
  key(Qt::Key_Down);
  EXPECT_EQ(taken(), QStringList());
  key(Qt::Key_Up);
  key(Qt::Key_Down);
  EXPECT_EQ(taken(), list({"30", "-4"}));
}

TEST_F(SpinnerTest, BadTextIsShownAsSuch) {
  const QColor good = edit->palette().color(QPalette::Text);
  for (const QColor& base : {QColor(Qt::white), QColor(35, 35, 35)}) {
    QPalette palette = dialog.palette();
    palette.setColor(QPalette::Base, base);
    spinner->setPalette(palette);
    type(QStringLiteral("<b>1..2"));
    const QColor bad = edit->palette().color(QPalette::Active, QPalette::Text);
    EXPECT_NE(bad, good);
    EXPECT_GT(std::abs(bad.lightness() - base.lightness()), 90) << "readable";
    EXPECT_TRUE(edit->toolTip().contains(QStringLiteral("&lt;b&gt;1..2"))) << "not as markup";
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(spinner)
                    ->text(QAccessible::Description)
                    .contains(QStringLiteral("<b>1..2")));
    type(QStringLiteral("12"));
    EXPECT_EQ(edit->palette().color(QPalette::Text), good);
    EXPECT_EQ(edit->toolTip(), QString());
  }
}

TEST_F(SpinnerTest, TabSelectsAllAndAClickDoesNot) {
  spinner->setText(QStringLiteral("12345"));
  key(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  EXPECT_EQ(QApplication::focusWidget(), edit);
  EXPECT_TRUE(spinner->hasFocus());
  EXPECT_EQ(edit->selectedText(), QStringLiteral("12345"));
  key(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  EXPECT_EQ(QApplication::focusWidget(), after);
  QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(5, edit->height() / 2));
  EXPECT_EQ(QApplication::focusWidget(), edit);
  EXPECT_EQ(edit->selectedText(), QString());

  leave();
  spinner->selectOnEntry = false;
  enter();
  QCoreApplication::processEvents();
  EXPECT_EQ(edit->selectedText(), QString());

  QWidget::setTabOrder(after, spinner);
  QWidget::setTabOrder(spinner, before);
  after->setFocus();
  key(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  EXPECT_EQ(QApplication::focusWidget(), edit);
  key(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  EXPECT_EQ(QApplication::focusWidget(), before);
}

TEST_F(SpinnerTest, ContextMenuStepsAndKeepsTheField) {
  spinner->setMax(1);
  type(QStringLiteral("1"));
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), edit->mapToGlobal({5, 5}));
  QApplication::sendEvent(edit, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  EXPECT_EQ(taken(), QStringList()) << "the menu is part of the field";
  const QList<QAction*> actions = menu->actions();
  EXPECT_FALSE(actions.at(actions.size() - 2)->isEnabled()) << "no step beyond the limit";
  actions.last()->trigger();
  EXPECT_EQ(taken(), list({"500m"}));
  menu->close();
}

TEST_F(SpinnerTest, AccessibleAsASpinButton) {
  spinner->setMin(-5);
  spinner->setMax(50);
  spinner->setValue(7);
  for (QWidget* widget : std::initializer_list<QWidget*>{spinner, edit}) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
    ASSERT_TRUE(face && face->valueInterface() && face->textInterface());
    EXPECT_EQ(face->role(), widget == spinner ? QAccessible::SpinBox : QAccessible::EditableText);
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Resistance"));
    EXPECT_EQ(face->text(QAccessible::Value), QStringLiteral("7"));
    EXPECT_EQ(face->valueInterface()->currentValue().toDouble(), 7);
    EXPECT_EQ(face->valueInterface()->minimumValue().toDouble(), -5);
    EXPECT_EQ(face->valueInterface()->maximumValue().toDouble(), 50);
    EXPECT_TRUE(face->state().editable && face->state().focusable);
  }
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(spinner);
  face->valueInterface()->setCurrentValue(1000.0);
  face->editableTextInterface()->insertText(1, QStringLiteral("1"));
  EXPECT_EQ(spinner->text(), QStringLiteral("50")) << "put in without the focus, it is finished";
  enter();
  face->editableTextInterface()->insertText(1, QStringLiteral("1"));
  EXPECT_EQ(spinner->text(), QStringLiteral("510"));
  EXPECT_EQ(face->textInterface()->text(0, 2), QStringLiteral("51"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(before)->role(), QAccessible::EditableText);
}

TEST_F(SpinnerTest, LaysOutAsANativeSpinBox) {
  QDoubleSpinBox native(&dialog);
  native.ensurePolished();
  EXPECT_EQ(spinner->sizeHint().height(), native.sizeHint().height());
  EXPECT_LT(spinner->minimumSizeHint().width(), spinner->sizeHint().width());
  const QRect leftToRight = edit->geometry();
  spinner->setLayoutDirection(Qt::RightToLeft);
  EXPECT_EQ(edit->geometry(), QStyle::visualRect(Qt::RightToLeft, spinner->rect(), leftToRight));
  QFont large = spinner->font();
  large.setPointSize(3 * large.pointSize());
  spinner->setFont(large);
  EXPECT_GT(spinner->sizeHint().height(), 2 * native.sizeHint().height());
}

} // namespace
