#pragma once

#include "Drive/DialogDriver.h"
#include "DriverFixture.h"
#include "Script/ScriptDialog.h"

#include <QJSEngine>
#include <QQmlEngine>

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << text.toStdString();
}

inline QString text(const char* utf8) {
  return QString::fromUtf8(utf8);
}

/// A driver, a script engine, and the fixture dialog run under both.
class Driving : public testing::Test {
protected:
  DialogDriver driver;
  QJSEngine engine;
  ScriptBridge bridge;
  int result = -1;

  Driving() {
    QQmlEngine::setObjectOwnership(&bridge, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty(text("test"), engine.newQObject(&bridge));
  }

  /// Runs the body of a function of the wrapper `d` on a fresh fixture: its value as JSON, or its
  /// exception behind "!".
  QString drive(const QString& body) {
    QString outcome;
    FixtureDialog dialog;
    bridge.dialog = &dialog;
    driver.beginScope();
    driver.onDialog([&](QWidget* opened) {
      QJSValue function = engine.evaluate(text("(function(d) {%1\n})").arg(body));
      EXPECT_FALSE(function.isError()) << function.toString().toStdString();
      const QJSValue value = function.call({engine.newQObject(new ScriptDialog(opened))});
      outcome = value.isError()
                    ? text("!") + value.toString()
                    : engine.evaluate(text("JSON.stringify")).call({value}).toVariant().toString();
      if (dialog.isVisible())
        dialog.reject();
    });
    result = dialog.exec();
    driver.endScope();
    return outcome;
  }

  struct Case {
    const char* body;
    const char* expected; ///< JSON; behind "!", all of its words are in the exception's message
  };

  void check(std::initializer_list<Case> cases) {
    for (const Case& one : cases) {
      const QString outcome = drive(text(one.body));
      const QString expected = text(one.expected);
      if (!expected.startsWith(QLatin1Char('!'))) {
        EXPECT_EQ(outcome, expected) << one.body;
        continue;
      }
      EXPECT_TRUE(outcome.startsWith(QLatin1Char('!')))
          << one.body << " gave " << outcome.toStdString();
      for (const QString& part : expected.mid(1).split(QLatin1Char('|')))
        EXPECT_TRUE(outcome.contains(part))
            << one.body << "\n  " << outcome.toStdString() << "\n  lacks " << part.toStdString();
    }
    EXPECT_EQ(driver.failures().join(QLatin1Char('\n')), QString());
  }
};
