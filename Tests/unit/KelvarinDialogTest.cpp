#include "Frame/KelvarinDialog.h"
#include "HostSupport/Files.h"
#include "HostSupport/System.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/CheckBox.h"
#include "HostWidgets/EditBox.h"
#include "HostWidgets/Spinner.h"
#include "Pieces/DummyWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <cstring>
#include <deque>
#include <limits>
#include <string>

namespace {

/// An argument block with callbacks of its own, as a host makes it.
class FakeCall {
public:
  FakeCall() {
    // Whatever the module does not own is poisoned, so that reading it shows.
    std::memset(static_cast<void*>(&m_host.block), 0xA5, sizeof m_host.block);
    m_host.block.argCount = 0;
    m_host.block.makeStringResult = &makeStrings;
    m_host.block.makeRealResult = &makeReals;
    m_host.block.hostString = &copyString;
  }

  FakeCall& reals(std::vector<double> values) {
    // A zero behind the end shows who reads one too many.
    const std::size_t count = values.size();
    values.push_back(0);
    m_reals.push_back(std::move(values));
    add(UserReal, m_reals.back().data(), count);
    return *this;
  }
  FakeCall& strings(std::vector<const char*> texts) {
    m_strings.push_back(std::move(texts));
    add(UserString, m_strings.back().data(), m_strings.back().size());
    return *this;
  }

  UserFunctionInterface* block() { return &m_host.block; }
  const std::vector<double>& realResult() const { return m_host.realResult; }
  const std::vector<char*>& stringResult() const { return m_host.stringResult; }
  std::vector<std::string> texts() const {
    return {m_host.stringResult.begin(), m_host.stringResult.end()};
  }
  void giveNothing() { m_host.isEmpty = true; }

private:
  struct Host {
    UserFunctionInterface block;
    std::vector<double> realResult;
    std::vector<char*> stringResult;
    bool isEmpty = false;
  };
  static Host* hostOf(UserFunctionInterface* call) { return reinterpret_cast<Host*>(call); }
  static char** makeStrings(UserFunctionInterface* call, int count) {
    hostOf(call)->stringResult.assign(std::size_t(count), nullptr);
    return hostOf(call)->isEmpty ? nullptr : hostOf(call)->stringResult.data();
  }
  static double* makeReals(UserFunctionInterface* call, int count, const char*) {
    hostOf(call)->realResult.assign(std::size_t(count), std::numeric_limits<double>::quiet_NaN());
    return hostOf(call)->isEmpty ? nullptr : hostOf(call)->realResult.data();
  }
  static char* copyString(const char* text) {
    static std::deque<std::string> kept;
    kept.emplace_back(text);
    return kept.back().data();
  }
  void add(UserDataType type, void* data, std::size_t count) {
    UserArgument& argument = m_host.block.args[m_host.block.argCount++];
    argument.data = count ? data : nullptr;
    argument.count = std::uint32_t(count);
    argument.type = type;
  }

  Host m_host;
  std::deque<std::vector<double>> m_reals;
  std::deque<std::vector<const char*>> m_strings;
};

/// Runs `act` once its `exec` has begun.
class TestDialog : public KelvarinDialog {
public:
  explicit TestDialog(std::function<void(TestDialog*)> act = {})
      : KelvarinDialog(nullptr, "TestDialog", true, {}), m_act(std::move(act)) {
    setLayout(new QVBoxLayout);
    dimsSavingEnabled = false;
  }
  using KelvarinDialog::dimsSavingEnabled;
  template <class Widget> Widget* add(int argument, int element, int out) {
    auto* widget = new Widget(this, "widget");
    widget->argIndex = argument;
    widget->elementIndex = element;
    widget->outElementIndex = out;
    layout()->addWidget(widget);
    return widget;
  }
  QPushButton* addButton(const char* name) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    layout()->addWidget(button);
    return button;
  }
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override {
    KelvarinDialog::prepareDialog(args, type);
    QTimer::singleShot(0, this, [this] {
      if (m_act)
        m_act(this);
      else
        okClicked();
    });
  }

private:
  std::function<void(TestDialog*)> m_act;
};

} // namespace

TEST(KelvarinDialog, AccessorsAreSafeForWhatIsMissing) {
  FakeCall call;
  call.reals({1.5, 2.5})
      .strings({"text", nullptr})
      .reals({})
      .strings({})
      .strings({"4.7k", nullptr});
  TestDialog dialog([](TestDialog* d) {
    const double* reals = nullptr;
    const char* const* strings = nullptr;
    unsigned count = 7;
    double real = 9;
    YString text("kept");

    EXPECT_EQ(d->getReal(0), 1.5);
    EXPECT_TRUE(d->getReal(0, &real) && real == 1.5);
    EXPECT_EQ(d->getString(1), "text");
    EXPECT_TRUE(d->getRealVector(0, &reals, &count) && count == 2 && reals[1] == 2.5);
    EXPECT_TRUE(d->getStringVector(1, &strings, &count) && count == 2);

    for (const int missing : {2, 3, 5, 31, 32, 1000, -1}) {
      real = 9;
      EXPECT_EQ(d->getReal(missing), 0.0) << missing;
      EXPECT_FALSE(d->getReal(missing, &real)) << missing;
      EXPECT_EQ(real, 9) << missing;
      EXPECT_EQ(d->getString(missing), "") << missing;
      EXPECT_FALSE(d->getString(missing, &text)) << missing;
      EXPECT_EQ(text, "kept") << missing;
      EXPECT_EQ(d->copyReals(missing, &real, sizeof real), 0U) << missing;
    }
    // A vector of the other kind is none.
    EXPECT_FALSE(d->getStringVector(0, &strings, &count));
    EXPECT_TRUE(strings == nullptr && count == 0);
    EXPECT_FALSE(d->getRealVector(1, &reals, &count));
    EXPECT_TRUE(reals == nullptr && count == 0);
    // One value is taken as what it reads as.
    EXPECT_EQ(d->getString(0), "1.5");
    EXPECT_EQ(d->getReal(4), 4700);
    double read[2] = {9, 9};
    EXPECT_EQ(d->copyReals(4, read, sizeof read), 2U);
    EXPECT_TRUE(read[0] == 4700 && read[1] == 0);

    double copied[3] = {-1, -1, -1};
    EXPECT_EQ(d->copyReals(0, copied, 7), 0U);
    EXPECT_EQ(d->copyReals(0, copied, 8), 1U);
    EXPECT_EQ(d->copyReals(0, copied, sizeof copied), 2U);
    EXPECT_EQ(copied[2], -1);
    d->cancelClicked();
  });
  EXPECT_FALSE(dialog.runDialog(call.block(), UserReal));
}

TEST(KelvarinDialog, ElementsInAndOutNeedNotBeTheSame) {
  FakeCall call;
  call.reals({10, 20, 30}).strings({"4.7k", "{2*R}", "on"});
  TestDialog dialog;
  dialog.add<Spinner>(0, 2, 5);
  dialog.add<Spinner>(1, 1, 0);
  dialog.add<CheckBox>(0, 3, 2)->setChecked(true); // no such element: as the form made it
  dialog.add<EditBox>(1, 0, 1);
  dialog.add<EditBox>(1, 2, -1); // shown, not returned
  const DummyWidget carrier(&dialog, 3);

  EXPECT_TRUE(dialog.runDialog(call.block(), UserString));
  EXPECT_EQ(call.texts(), (std::vector<std::string>{"{2*R}", "4.7k", "1", "", "", "30"}));
  EXPECT_TRUE(dialog.runDialog(call.block(), UserReal));
  EXPECT_EQ(call.realResult(), (std::vector<double>{0, 4700, 1, 0, 0, 30}));
}

TEST(KelvarinDialog, AWidgetThatLoadsItselfIsLeftAlone) {
  class OwnWay : public DummyWidget {
  public:
    explicit OwnWay(QWidget* parent) : DummyWidget(parent, 0) { argIndex = elementIndex = 0; }
    bool initialiseWidget(UserFunctionInterface*) override {
      stringValue = QStringLiteral("own");
      return true;
    }
  };
  FakeCall call;
  call.strings({"given"});
  TestDialog dialog;
  const OwnWay widget(&dialog);
  dialog.runDialog(call.block(), UserString);
  EXPECT_EQ(call.texts(), std::vector<std::string>{"own"});
}

TEST(KelvarinDialog, AWidgetThatIsWiderThanItKnowsFillsItsFirstElement) {
  class Wide : public DummyWidget {
  public:
    explicit Wide(QWidget* parent) : DummyWidget(parent, 0) { outElementIndex = 1; }
    int vectorSize() override { return 3; }
  };
  FakeCall call;
  TestDialog dialog;
  Wide widget(&dialog);
  widget.stringValue = QStringLiteral("one");
  dialog.runDialog(call.block(), UserString);
  EXPECT_EQ(call.texts(), (std::vector<std::string>{"", "one", "", ""}));
}

TEST(KelvarinDialog, AnExpressionDoesNotCountInAResultOfReals) {
  for (const UserDataType type : {UserReal, UserString}) {
    FakeCall call;
    bool counted = false;
    TestDialog dialog([&](TestDialog* self) {
      counted = self->findChild<Spinner*>(QStringLiteral("widget"))->isAcceptable();
      EXPECT_TRUE(self->findChild<Spinner*>(QStringLiteral("unbound"))->isAcceptable());
      self->okClicked();
    });
    dialog.add<Spinner>(-1, -1, 0)->setText(QStringLiteral("{2*tpd}"));
    Spinner unbound(&dialog, "unbound");
    unbound.setText(QStringLiteral("{2*tpd}"));
    dialog.runDialog(call.block(), type);
    EXPECT_EQ(counted, type == UserString);
  }
}

TEST(KelvarinDialog, HidingEndsTheCall) {
  FakeCall call;
  TestDialog dialog([](TestDialog* self) { QTimer::singleShot(0, self, &QWidget::hide); });
  EXPECT_FALSE(dialog.runDialog(call.block(), UserReal));
  EXPECT_FALSE(dialog.isVisible());
}

TEST(KelvarinDialog, CancelMakesNoResult) {
  FakeCall call;
  TestDialog dialog([](TestDialog* d) { d->cancelClicked(); });
  dialog.add<Spinner>(0, 0, 0);
  EXPECT_FALSE(dialog.runDialog(call.block(), UserReal));
  EXPECT_TRUE(call.realResult().empty());
}

TEST(KelvarinDialog, AHostWithoutMemoryGetsNoResult) {
  for (const UserDataType type : {UserReal, UserString}) {
    FakeCall call;
    call.giveNothing();
    TestDialog dialog([](TestDialog* d) {
      d->setRealResult(1);
      d->setStringResult("x");
      d->okClicked();
    });
    dialog.add<Spinner>(0, 0, 0);
    EXPECT_TRUE(dialog.runDialog(call.block(), type));
  }
}

TEST(KelvarinDialog, HelpButtonGoesWithTheHelp) {
  for (const bool hasHelp : {true, false}) {
    sp_SetSystemValue("hasHelp", hasHelp ? "1" : "0");
    FakeCall call;
    TestDialog dialog([hasHelp](TestDialog* d) {
      EXPECT_EQ(d->findChild<QPushButton*>(QStringLiteral("helpButton"))->isVisible(), hasHelp);
      d->reject();
    });
    dialog.addButton("helpButton");
    dialog.runDialog(call.block(), UserReal);
  }
  sp_SetSystemValue("hasHelp", nullptr);
}

TEST(KelvarinDialog, HelpIsAskedForByAnyNumberButMinusOne) {
  class Helped : public TestDialog {
  public:
    explicit Helped(int topic) : m_topic(topic) {}
    int helpContextId() override { return m_topic; }

  private:
    int m_topic;
  };
  static std::vector<std::string> asked;
  sp_SetHelpViewer([](const HelpRequest& request) { asked.emplace_back(request.asked.c_str()); });
  for (const int topic : {-1, 0, 3004})
    Helped(topic).helpClicked();
  sp_SetHelpViewer(nullptr);
  EXPECT_EQ(asked, (std::vector<std::string>{"0", "3004"}));
}

TEST(KelvarinDialog, RemembersItsSizeWhereItIsToldTo) {
  QTemporaryDir settings;
  sp_SetSettingsDir(toYs(settings.path()));
  for (const bool saves : {false, true}) {
    QSize seen;
    for (const QSize size : {QSize(321, 234), QSize(345, 256)}) {
      FakeCall call;
      TestDialog dialog([&](TestDialog* d) {
        seen = d->size();
        d->resize(size);
        d->reject();
      });
      dialog.dimsSavingEnabled = saves;
      dialog.runDialog(call.block(), UserReal);
    }
    EXPECT_EQ(seen == QSize(321, 234), saves);
  }
  sp_SetSettingsDir("");
}

TEST(KelvarinDialog, ButtonsAreWiredByName) {
  for (const auto& [name, expected] :
       {std::pair("okButton", 1), std::pair("cancelButton", 0), std::pair("applyButton", -1)}) {
    FakeCall call;
    int result = -1;
    TestDialog dialog([&, buttonName = name](TestDialog* d) {
      d->findChild<QPushButton*>(QString::fromLatin1(buttonName))->click();
      result = d->isVisible() ? -1 : d->result();
      d->reject();
    });
    dialog.addButton(name);
    dialog.runDialog(call.block(), UserReal);
    EXPECT_EQ(result, expected) << name;
  }
}

TEST(KelvarinDialog, OkFinishesTheCellThatIsOpen) {
  FakeCall call;
  QString cell;
  TestDialog dialog([&](TestDialog* d) {
    auto* table = d->findChild<QTableWidget*>();
    d->activateWindow();
    table->setFocus();
    table->editItem(table->item(0, 0));
    QApplication::processEvents();
    auto* editor = table->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(QStringLiteral("typed"));
    d->findChild<QPushButton*>(QStringLiteral("okButton"))->click();
    cell = table->item(0, 0)->text();
  });
  auto* table = new QTableWidget(1, 1, &dialog);
  table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("old")));
  dialog.layout()->addWidget(table);
  dialog.addButton("okButton");
  EXPECT_TRUE(dialog.runDialog(call.block(), UserReal));
  EXPECT_EQ(cell, QStringLiteral("typed"));
}

TEST(KelvarinDialog, CtrlReturnIsAnOkThatCanBeSeen) {
  for (const bool isSeen : {true, false}) {
    TestDialog dialog;
    auto* list = new QTableWidget(1, 1, &dialog);
    dialog.layout()->addWidget(list);
    QPushButton* ok = dialog.addButton("okButton");
    ok->setVisible(isSeen);
    dialog.KelvarinDialog::prepareDialog(nullptr, UserReal);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(dialog.isVisible(), !isSeen);
  }
}

TEST(KelvarinDialog, AnyWayToAcceptFinishesTheOpenField) {
  FakeCall call;
  double taken = 0;
  int changes = 0;
  TestDialog dialog([&](TestDialog* d) {
    auto* edit = d->findChild<Spinner*>();
    d->activateWindow();
    edit->setFocus();
    QApplication::processEvents();
    edit->findChild<QLineEdit*>()->setText(QStringLiteral("500"));
    QObject::connect(edit, &Spinner::changed, edit, [&] { ++changes; });
    d->okClicked();
    taken = edit->value();
  });
  auto* edit = new Spinner(&dialog);
  edit->setMax(10);
  dialog.layout()->addWidget(edit);
  EXPECT_TRUE(dialog.runDialog(call.block(), UserReal));
  EXPECT_EQ(taken, 10);
  EXPECT_EQ(changes, 1);
}

TEST(KelvarinDialog, WhatIsPastedIntoAFieldIsOneLine) {
  const QString text = QStringLiteral("\na\r\nb\u2028c\n");
  const auto drop = [&text](QLineEdit* edit) {
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(edit, &enter);
    QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(edit, &event);
  };
  const auto paste = [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier); };
  const auto pasteByMenu = [](QLineEdit* edit) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(edit, &event);
    auto* menu = edit->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    for (QAction* action : menu->actions())
      if (action->text().startsWith(QLatin1String("&Paste")))
        action->trigger();
    menu->close();
  };
  const struct {
    const char* name;
    std::function<void(QLineEdit*)> act;
  } ways[] = {{"keys", paste}, {"menu", pasteByMenu}, {"drop", drop}};
  QApplication::clipboard()->setText(text);
  for (const auto& way : ways) {
    TestDialog dialog;
    auto* edit = new QLineEdit(QStringLiteral("x\ny"), &dialog);
    dialog.layout()->addWidget(edit);
    auto* spinner = new Spinner(&dialog);
    dialog.layout()->addWidget(spinner);
    dialog.show();
    for (QLineEdit* field : {edit, spinner->findChild<QLineEdit*>()}) {
      field->setFocus();
      field->end(false);
      way.act(field);
      EXPECT_TRUE(field->text().contains(QStringLiteral("a b c"))) << way.name;
    }
    EXPECT_EQ(edit->text().count(QLatin1Char('\n')), 1) << "the one that was there, " << way.name;
    edit->undo();
    EXPECT_EQ(edit->text(), QStringLiteral("x\ny")) << way.name;
  }
}

/// Raised by a slot that a button of a dialog calls.
struct SlotFault : std::exception {};

TEST(KelvarinDialog, AnExceptionOfASlotLeavesTheCallAndTakesTheDialogAlong) {
  // Qt warns of an exception that passes through its event loop; here that is what is asked for.
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  FakeCall call;
  QPointer<TestDialog> seen;
  const auto run = [&] {
    TestDialog dialog([](TestDialog*) {});
    seen = &dialog;
    QPushButton* button = dialog.addButton("faultyButton");
    QObject::connect(button, &QPushButton::clicked, button, [] { throw SlotFault(); });
    QTimer::singleShot(0, button, [button] { QTest::mouseClick(button, Qt::LeftButton); });
    dialog.runDialog(call.block(), UserReal);
  };
  EXPECT_THROW(run(), SlotFault);
  EXPECT_TRUE(seen.isNull());
  // Another dialog runs as if nothing had been.
  TestDialog next([](TestDialog* d) { d->accept(); });
  EXPECT_TRUE(next.runDialog(call.block(), UserReal));
  qInstallMessageHandler(before);
}

TEST(KelvarinDialog, FlagsSayWhatKindOfWindowItIs) {
  class Plain : public KelvarinDialog {
  public:
    explicit Plain(bool modal)
        : KelvarinDialog(nullptr, "p", modal, Qt::WindowContextHelpButtonHint) {}
  };
  const Plain modal(true);
  const Plain modeless(false);
  EXPECT_TRUE(modal.isModal() && !(modal.windowFlags() & Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(!modeless.isModal() && (modeless.windowFlags() & Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(modal.windowFlags() & Qt::WindowContextHelpButtonHint);
}
