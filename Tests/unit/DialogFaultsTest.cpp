// Exceptions that leave an event handler of a call's dialog, raised by a user's clicks and not by
// the driver's.

#include "ScriptFixture.h"

#include "Call/HostApplication.h"
#include "Call/HostCall.h"
#include "HostSupport/KelvarinException.h"
#include "HostSupport/System.h"

#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

/// What the call raises.
std::string raisedBy(const std::function<void()>& call) {
  try {
    callEntry(QStringLiteral("Fault"), call);
  } catch (const CallError& error) {
    return error.what();
  }
  return "nothing";
}

/// As soon as the window of that name is in front, as a user's.
void clickLater(const char* window, const char* button) {
  QTimer::singleShot(0, [=] {
    QWidget* const present = QApplication::activeModalWidget();
    auto* found = present && present->objectName() == QLatin1String(window)
                      ? present->findChild<QPushButton*>(QLatin1String(button))
                      : nullptr;
    if (found)
      QTest::mouseClick(found, Qt::LeftButton);
    else
      clickLater(window, button);
  });
}

/// A dialog with one button, which acts.
class Acting : public QDialog {
public:
  Acting(const char* name, std::function<void()> act) {
    setObjectName(QLatin1String(name));
    auto* button = new QPushButton(this);
    button->setObjectName(QStringLiteral("button"));
    connect(button, &QPushButton::clicked, this, std::move(act));
  }
};

class Stubborn : public Acting {
public:
  using Acting::Acting;
  void done(int) override { throw 1; }
};

class BrokenWhenShown : public QDialog {
protected:
  void showEvent(QShowEvent*) override { throw std::runtime_error("when shown"); }
};

int visibleDialogs() {
  int count = 0;
  for (const QWidget* window : QApplication::topLevelWidgets())
    count += window->isVisible() && qobject_cast<const QDialog*>(window);
  return count;
}

using DialogFaultsTest = ScriptFixture;

} // namespace

TEST_F(DialogFaultsTest, endTheCall) {
  driver.setInteractive(true);
  const struct {
    std::function<void()> act;
    const char* raised;
  } cases[] = {
      {[] { throw KelvarinException("a fault of the module"); }, "a fault of the module"},
      {[] { throw std::runtime_error("a standard one"); }, "a standard one"},
      {[] { throw 42; }, "an unknown exception"},
      {[] { throw KelvarinException(""); }, ""},
  };
  for (const auto& c : cases) {
    bool isOver = false;
    clickLater("outer", "button");
    EXPECT_EQ(raisedBy([&] {
                EXPECT_EQ(Acting("outer", c.act).exec(), int(QDialog::Rejected));
                isOver = true;
              }),
              c.raised);
    EXPECT_TRUE(isOver);
    EXPECT_EQ(visibleDialogs(), 0);
  }
  EXPECT_EQ(raisedBy([] {}), "nothing");
}

TEST_F(DialogFaultsTest, closeWhatTheCallHasOpen) {
  driver.setInteractive(true);
  QDialog others; // of no call
  others.show();
  auto* viewer = new QDialog; // stands on its own
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  std::string inner;
  int asked = 0;
  const auto nested = [&] {
    ++asked;
    clickLater("inner", "button");
    Stubborn("inner", [] { throw KelvarinException("from the inner one"); }).exec();
    // The code goes on as after a cancel, and asks again: nobody has to answer.
    ++asked;
    QDialog question;
    question.exec();
    ++asked;
    QDialog again;
    again.setModal(true);
    again.show();
    QEventLoop loop;
    QObject::connect(&again, &QDialog::finished, &loop, &QEventLoop::quit);
    loop.exec();
    throw KelvarinException("a later one");
  };
  clickLater("outer", "button");
  EXPECT_EQ(raisedBy([&] {
              viewer->show();
              Acting("outer", nested).exec();
            }),
            "from the inner one");
  EXPECT_EQ(asked, 3);
  EXPECT_TRUE(others.isVisible());
  EXPECT_TRUE(viewer->isVisible());
  EXPECT_EQ(visibleDialogs(), 2);
  delete viewer;

  // A call inside a call ends alone.
  const auto callInside = [&] {
    clickLater("inner", "button");
    inner = raisedBy([] { Acting("inner", [] { throw 1; }).exec(); });
    QApplication::activeModalWidget()->close();
  };
  clickLater("outer", "button");
  EXPECT_EQ(raisedBy([&] { Acting("outer", callInside).exec(); }), "nothing");
  EXPECT_EQ(inner, "an unknown exception");
}

TEST_F(DialogFaultsTest, neverLeaveALoopThatWaits) {
  driver.setInteractive(true);
  EXPECT_EQ(raisedBy([] { BrokenWhenShown().exec(); }), "when shown");
  EXPECT_EQ(raisedBy([] {
              QDialog dialog;
              QTimer::singleShot(0, [] { throw 1; });
              dialog.exec();
            }),
            "an unknown exception");
  EXPECT_EQ(raisedBy([] {
              QDialog dialog;
              QMenu menu;
              menu.addAction(QStringLiteral("entry"));
              QTimer::singleShot(0, &dialog, [&] {
                QTimer::singleShot(0, [] { throw 1; });
                menu.exec(QPoint());
              });
              dialog.exec();
              EXPECT_FALSE(menu.isVisible());
            }),
            "an unknown exception");
}

TEST_F(DialogFaultsTest, areReportedOutsideOfCalls) {
  static std::string reported;
  sp_SetMessageSink([](const char* text) { reported = text; });
  QTimer::singleShot(0, [] { throw std::runtime_error("of nobody's call"); });
  QCoreApplication::processEvents();
  sp_SetMessageSink(nullptr);
  EXPECT_EQ(reported, "of nobody's call");
}

TEST_F(DialogFaultsTest, reachTheScript) {
  run("host.provide('dyn_EvaluateExpression', null)");
  driver.setInteractive(true);
  clickLater("AskDialog", "evaluateButton");
  EXPECT_EQ(run("try { Ask() } catch (e) { e.message }"),
            "\"*** FATAL ERROR *** Unresolved dynamic function 'dyn_EvaluateExpression' called\"");
  EXPECT_EQ(run("EchoReals(1)"), "[1]");
  EXPECT_TRUE(driver.openDialogs().isEmpty());

  driver.setInteractive(false); // the script's own click
  EXPECT_EQ(run("host.onDialog(d => d.click('evaluateButton'));"
                "try { Ask() } catch (e) { e.message.slice(-31) }"),
            "\"'dyn_EvaluateExpression' called\"");
  EXPECT_EQ(problems.join(QLatin1Char('\n')).toStdString(), "");
}
