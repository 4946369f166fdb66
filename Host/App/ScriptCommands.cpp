#include "ScriptCommands.h"

#include "Call/FunctionTable.h"
#include "CommandLine.h"
#include "Drive/DialogDriver.h"
#include "HostSupportQt/Help.h"
#include "HostSupportQt/Text.h"
#include "Interruption.h"
#include "Output.h"
#include "Paths.h"
#include "Script/ScriptEngine.h"
#include "Signature.h"
#include "Startup.h"

#include <QCoreApplication>
#include <QJSEngine>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr int defaultTimeout = 60; // seconds

QString countText(const FunctionInfo& function) {
  if (function.kind == FunctionInfo::Kind::Command)
    return QStringLiteral("-");
  return QStringLiteral("%1..%2").arg(function.minArgs).arg(function.maxArgs);
}

void printTable(const QVector<QStringList>& rows) {
  QVector<int> widths;
  for (const QStringList& row : rows)
    for (int column = 0; column < row.size(); ++column) {
      if (column == widths.size())
        widths.append(0);
      widths[column] = std::max(widths[column], row[column].size());
    }
  for (const QStringList& row : rows) {
    QString line;
    for (int column = 0; column < row.size(); ++column)
      line += row[column].leftJustified(widths[column] + 2);
    printLine(line.trimmed());
  }
}

} // namespace

void loadModule(const CommandLine& line, FunctionTable* table) {
  sp_SetHelpDir(toYs(hostDataDir(QStringLiteral("help"))));
  table->loadModule(line.moduleFile.isEmpty() ? defaultModuleFile() : line.moduleFile);
}

int runScript(const CommandLine& line) {
  FunctionTable table;
  loadModule(line, &table);
  DialogDriver driver;
  driver.setInteractive(hasUser());
  ScriptEngine engine(&table, &driver);
  QObject::connect(&engine, &ScriptEngine::printed, [&engine](const QString& text) {
    if (!printLine(text)) // nobody reads what it goes on for
      engine.jsEngine()->setInterrupted(true);
  });
  QObject::connect(&engine, &ScriptEngine::problem, &printError);
  engine.setArguments(line.words);
  // A user may look at a dialog for as long as they like.
  engine.setTimeout(line.timeout.value_or(driver.isInteractive() ? 0 : defaultTimeout));
  engine.setMemoryLimit(line.memory.value_or(ScriptEngine::usualMemoryLimit()));

  const Interruption interruption(&driver, &engine);
  const bool isText = line.command == CommandLine::Command::Eval;
  const ScriptEngine::Outcome outcome =
      isText ? engine.evaluate(line.script, QStringLiteral("<eval>")) : engine.runFile(line.script);
  if (isText && outcome.ok && !Interruption::wasAsked())
    printLine(engine.toJson(outcome.value));
  const QString summary = engine.summary();
  if (!summary.isEmpty() && !Interruption::wasAsked())
    printLine(summary);
  // Viewers that the script has left open are the user's to close.
  while (driver.isInteractive() && !driver.detachedWindows().isEmpty() && !Interruption::wasAsked())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  if (Interruption::wasAsked())
    return Interruption::exitStatus();
  if (engine.hasTakenTooMuchMemory())
    return ScriptEngine::statusOfMemory;
  return engine.hasFailed() || !outcome.ok ? 1 : 0;
}

int listFunctions(const CommandLine& line) {
  FunctionTable table;
  loadModule(line, &table);
  if (line.json) {
    printLine(QString::fromUtf8(QJsonDocument(table.toJson()).toJson().trimmed()));
    return 0;
  }
  QVector<QStringList> rows;
  rows.append({QStringLiteral("NAME"), QStringLiteral("KIND"), QStringLiteral("ARGS"),
               QStringLiteral("SIGNATURE")});
  for (const FunctionInfo& function : table.functions())
    rows.append(
        {function.name, kindName(function.kind), countText(function), signatureText(function)});
  printTable(rows);
  return 0;
}
