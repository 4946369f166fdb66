#pragma once

#include "Call/ScriptVector.h"
#include "HostSupport/Registration.h"

#include <QJsonArray>
#include <QLibrary>
#include <QObject>
#include <QVector>

#include <memory>
#include <vector>

/// One function or command that scripts can call.
struct FunctionInfo {
  enum class Kind { Legacy, Typed, Command };
  QString name;
  Kind kind = Kind::Legacy;
  int minArgs = 0;
  int maxArgs = 0;
  QVector<ArgType> argTypes; ///< `maxArgs` of them at least
  ResultType resultType = NoResult;
  UserFunctionHandler legacyHandler = nullptr;
  TypedHandler typedHandler = nullptr;
  CommandHandler commandHandler = nullptr;
  std::shared_ptr<QLibrary> module; ///< stays loaded as long as this is kept
};

/// "legacy", "typed" or "command".
QString kindName(FunctionInfo::Kind kind);

/// A module that is not what it should be: no file, no symbol, wrong sizes or version, a damaged
/// list.
class ModuleError : public std::runtime_error {
public:
  explicit ModuleError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// The modules that tables have loaded now; they stay as long as this is kept.
std::vector<std::shared_ptr<QLibrary>> loadedModules();

/// The functions and commands of the loaded module, which stays to the program's end if nobody
/// unloads it.
class FunctionTable {
public:
  FunctionTable() = default;
  ~FunctionTable();
  FunctionTable(const FunctionTable&) = delete;
  FunctionTable& operator=(const FunctionTable&) = delete;

  /// Loads the module and reads what it registered. Raises `ModuleError`, naming the file and the
  /// fault; the table is then as it was. Loading the same file again is no fault. When a file has
  /// come into memory, the functions of the event "PostPluginLoad" run; a fault of theirs is
  /// reported.
  void loadModule(const QString& file);
  /// Unloads it; what it registered is gone. While a call runs, it goes when the call has ended.
  void unloadModule();

  const QVector<FunctionInfo>& functions() const { return m_functions; } ///< sorted by name
  const FunctionInfo* find(const QString& name) const;
  /// What `dialoghost list --json` prints: name, kind, minArgs, maxArgs, argTypes, resultType.
  QJsonArray toJson() const;
  QString moduleFile() const { return m_library ? m_library->fileName() : QString(); }

private:
  std::shared_ptr<QLibrary> m_library;
  QVector<FunctionInfo> m_functions;
};

/// The module beside this program: "../lib/libDialogs1.so" and its like on other platforms.
QString defaultModuleFile();
