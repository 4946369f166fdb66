#pragma once

#include "Drive/DialogDriver.h"
#include "Script/ScriptEngine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// An engine over the functions of Tests/modules/EchoModule.cpp, with what it prints and reports.
class ScriptFixture : public ::testing::Test {
protected:
  ScriptFixture() {
    const QDir modules(QStringLiteral(KV_TEST_MODULES));
    table.loadModule(modules.absoluteFilePath(
        modules.entryList({QStringLiteral("*EchoModule.*")}, QDir::Files).value(0)));
    engine = std::make_unique<ScriptEngine>(&table, &driver);
    QObject::connect(engine.get(), &ScriptEngine::printed,
                     [this](const QString& line) { printed.append(line); });
    QObject::connect(engine.get(), &ScriptEngine::problem,
                     [this](const QString& line) { problems.append(line); });
  }

  /// The value as JSON, or the error.
  std::string run(const QString& script) {
    const ScriptEngine::Outcome outcome = engine->evaluate(script, QStringLiteral("t.js"));
    return (outcome.ok ? engine->toJson(outcome.value) : outcome.error).toStdString();
  }
  std::string run(const char* script) { return run(QString::fromUtf8(script)); }

  QString write(const QString& name, const char* text) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return file.fileName();
  }

  QTemporaryDir folder;
  FunctionTable table;
  DialogDriver driver;
  std::unique_ptr<ScriptEngine> engine;
  QStringList printed;
  QStringList problems;
};

/// A program, and its value as JSON or its error.
struct ScriptCase {
  const char* script;
  const char* expected;
};
