#include "Drive/InputPlayer.h"
#include "DriverHarness.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>

// How dialogs find their handlers, and what becomes of those that do not.

namespace {

TEST_F(Driving, ServesInnerDialogs) {
  check({
      {"test.onDialog(m => { m.press('Yes') }); d.click('ask'); return test.log()", R"("yes")"},
      {"let got; test.onDialog(m => { got = m.message(); m.accept() }); d.click('ask'); "
       "return [got, test.log(), d.focused()]",
       R"([{"buttons":["Yes","No"],"icon":"question","text":"Really do it?","title":"Sure?"},"no","ask"])"},
      {"test.onDialog(m => { m.key(null, 'Tab'); m.accept() }); d.click('ask'); return test.log()",
       R"("no")"},
      {"return d.message()", "!Every Widget|not a message box"},
      {"test.onDialog(i => { test.onDialog(m => { m.press('Yes') }); i.set('edit', 'deep'); "
       "i.click('ask'); i.accept() }); d.click('nested'); d.type('edit', 'outer'); "
       "return [test.log(), d.text('edit')]",
       R"(["inner=1","outer"])"},
      {"test.onDialog(b => { b.reject() }); d.click('nonModal'); return test.log()", R"("beside")"},
      {"test.onDialog(i => { i.set('QLineEdit:0', 'given'); i.accept() }); d.click('input'); "
       "return test.log()",
       R"("input=given")"},
      {"test.onDialog(b => { b.accept() }); d.click('later'); return test.log()", R"("later")"},
      {"let e; test.onDialog(m => { try { d.click('add') } catch (x) { e = x } m.reject() }); "
       "d.click('ask'); return ('' + e).includes('while \"Sure?\" is open')",
       "true"},
      {"test.onDialog(m => { m.press('Insert') }); d.key('rich', 'Menu'); return test.log()",
       R"("key1000055 insert")"},
      // an outer scope's handler serves where the inner one has none
      {"test.onDialog(i => { i.click('ask'); i.accept() }); test.onDialog(m => { m.press('Yes') });"
       "d.click('nested'); return test.log()",
       R"("inner=1")"},
  });
}

TEST_F(Driving, PicksInChoosers) {
  const QTemporaryDir folder;
  for (const char* name : {"one.txt", "two words.txt"})
    ASSERT_TRUE(QFile(folder.filePath(text(name))).open(QIODevice::WriteOnly));
  engine.globalObject().setProperty(text("folder"), folder.path());
  check({
      {"test.onDialog(c => { c.pick('#12aB34'); c.accept() }); d.click('colour'); "
       "return test.log()",
       R"("colour=#12ab34")"},
      {"test.onDialog(c => { c.pick({family: 'DejaVu Serif', pointSize: 17, bold: true, "
       "italic: true, underline: true, strikeOut: false}); c.accept() }); d.click('font'); "
       "return test.log()",
       R"("font=DejaVu Serif,17,1110")"},
      {"test.onDialog(c => { c.pick({strikeOut: true}); c.accept() }); d.click('font'); "
       "return test.log().slice(-2)",
       R"("01")"},
      {"test.onDialog(c => { c.pick(folder + '/one.txt'); c.accept() }); d.click('file'); "
       "return test.log() == 'file=' + folder + '/one.txt'",
       "true"},
      {"test.onDialog(c => { c.pick(['one.txt', 'two words.txt'].map(n => folder + '/' + n)); "
       "c.accept() }); d.click('files'); return test.log()",
       R"("files=2")"},
      {"test.onDialog(c => { test.onDialog(m => { m.press('Yes') }); "
       "c.pick(folder + '/one.txt'); c.accept() }); d.click('save'); "
       "return test.log() == 'save=' + folder + '/one.txt'",
       "true"},
      {"test.onDialog(c => { c.pick(folder); c.accept() }); d.click('folder'); "
       "return test.log() == 'folder=' + folder",
       "true"},
      {"test.onDialog(c => { c.reject() }); d.click('file'); return test.log()", R"("file=")"},
      {"d.pick('#000000')", "!not a file, colour or font chooser"},
      {"let e; test.onDialog(c => { try { c.pick('red') } catch (x) { e = x } c.reject() }); "
       "d.click('colour'); return '' + e",
       R"("Error: \"red\" is not a colour of the form #rrggbb")"},
      {"let e; test.onDialog(c => { try { c.pick({family: 'No Such'}) } catch (x) { e = x } "
       "c.reject() }); d.click('font'); return ('' + e).includes('No Such')",
       "true"},
  });
}

TEST_F(Driving, TakesPictures) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(text("new/picture.png"));
  engine.globalObject().setProperty(text("path"), path);
  drive(text("d.screenshot(path)"));
  EXPECT_GT(QImage(path).width(), 100);
  EXPECT_TRUE(drive(text("d.screenshot(path + '/below')")).startsWith(QLatin1Char('!')));
}

TEST_F(Driving, CountsFailures) {
  const struct {
    const char* body;
    const char* log;     ///< of the fixture, at the end
    const char* failure; ///< "" for none; parts between bars
  } cases[] = {
      {"d.click('ask'); l = test.log()", "no", "Sure?|no handler was waiting"},
      {"d.click('file'); l = test.log()", "file=", "Open|no handler was waiting"},
      {"d.click('nonModal'); l = test.log()", "beside", "beside|no handler was waiting"},
      {"d.click('menuButton'); l = test.log()", "", "menu|no handler was waiting"},
      {"test.onDialog(m => {}); d.click('ask'); l = test.log()", "no",
       "Sure?|left open by its handler"},
      {"test.onDialog(m => { m.press('Maybe') }); d.click('ask'); l = test.log()", "no",
       "Sure?|Maybe|Yes, No"},
      {"test.onDialog(i => { i.tab('Choices'); i.key('combo', 'Alt+Down') }); d.click('nested'); "
       "l = test.log()",
       "inner=0", "Inner|left open"},
      {"test.onDialog(m => {}); l = ''", "", "Every Widget|still waiting"},
      {"test.onDialog(i => { test.onDialog(m => {}); i.accept() }); d.click('nested'); "
       "l = test.log()",
       "inner=1", "Inner|still waiting"},
  };
  for (const auto& one : cases) {
    driver.clearFailures();
    const QString log = drive(text("let l; ") + text(one.body) + text("; return l"));
    EXPECT_EQ(log, text("\"%1\"").arg(text(one.log))) << one.body;
    ASSERT_EQ(driver.failures().size(), 1) << one.body;
    for (const QString& part : text(one.failure).split(QLatin1Char('|')))
      EXPECT_TRUE(driver.failures().first().contains(part))
          << one.body << "\n  " << driver.failures().first().toStdString();
  }
}

/// Refuses every polite way out.
class Stubborn : public QDialog {
public:
  using QDialog::QDialog;
  void reject() override {}

protected:
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

TEST_F(Driving, RejectsWhatAHandlerLeaves) {
  Stubborn stubborn;
  stubborn.setWindowTitle(text("Stubborn"));
  driver.onDialog([](QWidget*) {});
  EXPECT_EQ(stubborn.exec(), int(QDialog::Rejected));

  FixtureDialog dialog;
  driver.onDialog([&](QWidget* opened) {
    driver.onDialog([](QWidget*) { throw 5; });
    DialogActions(opened).click(text("nested"));
    throw std::runtime_error("broken");
  });
  EXPECT_EQ(dialog.exec(), int(QDialog::Rejected));
  ASSERT_EQ(driver.failures().size(), 3);
  EXPECT_TRUE(driver.failures().at(0).contains(text("Stubborn")));
  EXPECT_TRUE(driver.failures().at(1).contains(text("unknown exception")));
  EXPECT_TRUE(driver.failures().at(2).contains(text("broken")));
}

TEST_F(Driving, LeavesDetachedWindowsAlone) {
  auto* viewer = new QDialog;
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  viewer->setObjectName(text("viewer"));
  bool isServed = false;
  driver.onDialog([&](QWidget* dialog) {
    isServed = dialog->objectName() == text("fixture");
    DialogActions(dialog).reject();
  });
  viewer->show();
  FixtureDialog().exec();
  EXPECT_TRUE(isServed);
  ASSERT_EQ(driver.detachedWindows().size(), 1);
  DialogActions actions(driver.detachedWindows().first());
  EXPECT_EQ(actions.name(), text("viewer"));
  actions.close();
  EXPECT_TRUE(driver.detachedWindows().isEmpty());
  EXPECT_FALSE(actions.isOpen());
  EXPECT_THROW(actions.accept(), DriveError);
  EXPECT_EQ(driver.failures(), QStringList());
}

TEST_F(Driving, SurvivesAWindowThatDeletesItselfUnderTheAction) {
  const struct {
    const char* what;
    std::function<void(DialogActions*)> action;
  } cases[] = {
      {"set check", [](DialogActions* actions) { actions->set(text("check"), true); }},
      {"click check", [](DialogActions* actions) { actions->click(text("check")); }},
      {"choose",
       [](DialogActions* actions) {
         actions->choose(text("list"), {0, 1});
       }},
      {"type", [](DialogActions* actions) { actions->type(text("line"), text("xyz")); }},
      {"set line", [](DialogActions* actions) { actions->set(text("line"), text("x")); }},
  };
  for (const auto& one : cases) {
    auto* window = new QDialog;
    window->setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(window);
    auto* check = new QCheckBox;
    check->setObjectName(text("check"));
    auto* list = new QListWidget;
    list->setObjectName(text("list"));
    list->addItems({text("a"), text("b")});
    auto* line = new QLineEdit;
    line->setObjectName(text("line"));
    for (QWidget* widget :
         {static_cast<QWidget*>(check), static_cast<QWidget*>(list), static_cast<QWidget*>(line)})
      layout->addWidget(widget);
    QObject::connect(check, &QCheckBox::clicked, window, &QDialog::accept);
    QObject::connect(list, &QListWidget::itemPressed, window, &QDialog::accept);
    QObject::connect(line, &QLineEdit::textEdited, window, &QDialog::accept);
    window->show();
    DialogActions actions(window);
    try {
      one.action(&actions);
    } catch (const DriveError&) {
      // what could not be brought to its end may say so
    }
    EXPECT_FALSE(actions.isOpen()) << one.what;
  }
  EXPECT_EQ(driver.failures(), QStringList());
}

TEST_F(Driving, LeavesTheUsersDialogsToTheUser) {
  driver.setInteractive(true);
  QStringList seen;
  QObject::connect(&driver, &DialogDriver::dialogReady, &driver, [&](QWidget* dialog) {
    seen.append(dialog->windowTitle());
    QTimer::singleShot(0, dialog, [dialog] { static_cast<QDialog*>(dialog)->accept(); });
  });
  EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
  EXPECT_EQ(FixtureDialog().exec(), int(QDialog::Accepted));
  EXPECT_EQ(seen, QStringList{text("Every Widget")});
  driver.onDialog([](QWidget*) {});
  EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
  EXPECT_EQ(driver.failures(), QStringList());
}

TEST_F(Driving, ReturnsFromAClickWhenTheUserHasClosedWhatItOpened) {
  driver.setInteractive(true);
  FixtureDialog dialog;
  dialog.show();
  QObject::connect(&driver, &DialogDriver::dialogReady, &dialog, [&](QWidget* opened) {
    if (opened != &dialog)
      QTimer::singleShot(100, opened, [opened] { opened->close(); });
  });
  DialogActions(&dialog).click(text("later")); // opens a message box without waiting for it
  EXPECT_EQ(dialog.log, QStringList{text("later")});
}

TEST_F(Driving, WaitsWithADialogThatIsBlocked) {
  // the first dialog opens, and another one over it before its turn has come
  QStringList order;
  const auto note = [&](QWidget* dialog) {
    order.append(dialog->windowTitle());
    DialogActions(dialog).reject();
  };
  const auto first = [&](QWidget* dialog) {
    order.append(text("first"));
    note(dialog);
  };
  FixtureDialog dialog;
  QTimer::singleShot(0, &dialog, [] { QMessageBox::warning(nullptr, text("Over it"), text("…")); });
  driver.onDialog(first);
  driver.onDialog(note);
  dialog.exec();
  EXPECT_EQ(order.join(QLatin1Char(' ')), text("Over it first Every Widget"));
  EXPECT_EQ(driver.failures(), QStringList());
}

TEST_F(Driving, ServesABlockedWindowWhenTheModalDialogHasClosed) {
  QDialog beside;
  beside.setWindowTitle(text("Beside"));
  FixtureDialog dialog;
  QStringList order;
  driver.onDialog([&](QWidget* opened) {
    beside.show();
    DialogActions actions(opened);
    actions.click(text("add"));
    order.append(actions.title());
    actions.reject();
  });
  driver.onDialog([&](QWidget* opened) {
    order.append(opened->windowTitle());
    DialogActions(opened).reject();
  });
  dialog.exec();
  EXPECT_TRUE(InputPlayer::waitFor([&] { return !beside.isVisible(); }));
  EXPECT_EQ(order.join(QLatin1Char('/')), text("Every Widget/Beside"));
  EXPECT_EQ(driver.failures(), QStringList());
}

TEST_F(Driving, RejectsInnerDialogsOfAHandlerThatRaises) {
  driver.setInteractive(true); // the inner one would be left to its user
  FixtureDialog dialog;
  QDialog inner(&dialog);
  driver.onDialog([&](QWidget*) {
    inner.open();
    InputPlayer::settle();
    throw std::runtime_error("broken");
  });
  EXPECT_EQ(dialog.exec(), int(QDialog::Rejected));
  EXPECT_FALSE(inner.isVisible());
  EXPECT_EQ(driver.failures().size(), 1);
}

TEST_F(Driving, TellsThatItMoves) {
  QStringList moves;
  QObject::connect(&driver, &DialogDriver::moved, &driver,
                   [&](const QString& what) { moves.append(what); });
  drive(text("d.click('add'); d.accept()"));
  EXPECT_EQ(moves.join(QLatin1Char('/')),
            text("dialog \"Every Widget\" (fixture) opened/click \"add\"/accept \"Every Widget\"/"
                 "dialog \"Every Widget\" (fixture) closed"));
}

TEST_F(Driving, IsQuickOnLongLists) {
  // a hundred thousand rows: reading and finding by text are linear, or this takes minutes
  QElapsedTimer time;
  time.start();
  QDialog dialog;
  auto* list = new QListWidget;
  (new QVBoxLayout(&dialog))->addWidget(list);
  list->setObjectName(text("long"));
  for (int row = 0; row < 100'000; ++row)
    list->addItem(text("row %1").arg(row));
  driver.onDialog([&](QWidget* opened) {
    DialogActions actions(opened);
    EXPECT_EQ(actions.items(text("long")).size(), 100'000);
    actions.choose(text("long"), {text("row 99999")});
    EXPECT_EQ(actions.current(text("long")), QVariant(99'999));
    actions.reject();
  });
  dialog.exec();
  EXPECT_LT(time.elapsed(), 20'000);
  EXPECT_EQ(driver.failures(), QStringList());
}

} // namespace
