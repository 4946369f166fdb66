#pragma once

#include "Call/FunctionTable.h"
#include "Script/ScriptRunner.h"
#include "Services/HostServices.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTemporaryDir>

#include <memory>

class DialogDriver;

/// What stands behind `host`, `print`, `include`, `command` and the functions of the table: the
/// script code in ScriptHost.js gives them their form and calls the operations here. Their faults
/// become script exceptions.
class ScriptHost : public QObject {
  Q_OBJECT

public:
  /// Defines the globals in the runner's engine. `driver` may be null: then no dialog can be
  /// driven.
  ScriptHost(ScriptRunner* runner, FunctionTable* table, DialogDriver* driver,
             QObject* parent = nullptr);
  ~ScriptHost() override;

  /// Makes the table's functions globals; again where the table has changed.
  void defineFunctions();
  void setArguments(const QStringList& arguments) { m_arguments = arguments; }
  /// The function of that name. Raises `CallError` where there is none.
  const FunctionInfo& function(const QString& name) const;
  /// Checks, calls and tells `called`. Raises `CallError`. A copy, since the table may change while
  /// the call runs.
  CallResult callFunction(FunctionInfo function, const std::vector<ScriptVector>& arguments);
  /// A text file, UTF-8. Raises `CallError` with the reason.
  static QString readText(const QString& path);
  /// A script, which may come through a pipe. Raises `CallError`.
  static QString readProgram(const QString& path);

  Q_INVOKABLE QJSValue call(const QString& name, const QJSValue& arguments);
  Q_INVOKABLE QJSValue callDetailed(const QString& name, const QJSValue& arguments);
  Q_INVOKABLE void command(const QString& line);
  Q_INVOKABLE void print(const QString& line);
  Q_INVOKABLE QJSValue toText(const QJSValue& value);
  Q_INVOKABLE QJSValue takers() const { return m_runner->takers(); }
  Q_INVOKABLE QJSValue include(const QString& file, const QString& stack);

  Q_INVOKABLE QJSValue option(const QString& key, const QJSValue& value);
  Q_INVOKABLE QJSValue config(const QString& section, const QString& key, const QJSValue& value);
  Q_INVOKABLE QJSValue readFile(const QString& path);
  Q_INVOKABLE void writeFile(const QString& path, const QString& text);
  Q_INVOKABLE bool exists(const QString& path) const;
  Q_INVOKABLE QString clipboard() const;
  Q_INVOKABLE void setClipboard(const QString& text);
  Q_INVOKABLE void wait(double milliseconds);
  Q_INVOKABLE double now() const;
  Q_INVOKABLE double processTime() const;
  Q_INVOKABLE QString tempDir();
  Q_INVOKABLE QJSValue args() const;
  Q_INVOKABLE QJSValue functions() const;
  Q_INVOKABLE QJSValue helpRequests() const;
  Q_INVOKABLE QJSValue system(const QString& key);
  Q_INVOKABLE void setSystem(const QString& key, const QJSValue& value);

  Q_INVOKABLE void onDialog(const QJSValue& handler);
  Q_INVOKABLE QJSValue windows();

  Q_INVOKABLE void provide(const QString& name, const QJSValue& function);
  Q_INVOKABLE bool hasSchematic() const;
  Q_INVOKABLE void setHasSchematic(bool on);
  Q_INVOKABLE QJSValue picking() const;
  Q_INVOKABLE bool paste(const QString& text);
  Q_INVOKABLE QJSValue graphs() const;
  Q_INVOKABLE void setGraphs(const QJSValue& facts);
  Q_INVOKABLE QJSValue analysis(const QJSValue& parameters, const QJSValue& fields);
  Q_INVOKABLE void openAnalysis(const QJSValue& block);
  Q_INVOKABLE QJSValue symbolFileDialog(const QJSValue& request);

signals:
  void moved(); ///< the script is alive
  void printed(const QString& line);
  void called(const QString& function, const std::vector<ScriptVector>& arguments,
              const CallResult& result, const QString& error);

private:
  template <class Action> auto guarded(Action action) -> decltype(action());
  CallResult callByName(const QString& name, const QJSValue& arguments);
  QJSValue wrap(QWidget* dialog);
  DialogDriver* neededDriver() const;

  ScriptRunner* m_runner;
  FunctionTable* m_table;
  QPointer<DialogDriver> m_driver;
  HostServices m_services;
  QJSValue m_define;
  QStringList m_defined;
  QStringList m_arguments;
  QElapsedTimer m_clock;
  std::unique_ptr<QTemporaryDir> m_tempDir;
  int m_tempDirs = 0;
  int m_includes = 0;
};
