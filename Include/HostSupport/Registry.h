#pragma once

#include "HostSupport/Registration.h"

#include <string>
#include <vector>

// The host's view of what modules have registered. Modules do not use it.

struct TypedFunctionRecord {
  const FuncConstruct* owner;
  std::string name;
  std::vector<ArgType> types;
  int minArgs;
  int maxArgs;
  TypedHandler handler;
  ResultType result;
};

struct CommandRecord {
  std::string name;
  CommandHandler handler;
};

struct DynFuncCallRecord {
  void** slot;
  void* unresolved; ///< what the slot held when it was registered: a stub that raises
  std::string name;
  bool required;
  std::string file;
  int line;
};

struct DynFuncDefRecord {
  const void* owner;
  std::string name;
  void* entry;
  std::string file;
  int line;
};

struct OptionRecord {
  std::string name;
  std::string file;
  int line;
  OptionValue defaultValue; ///< tells the kind as well; of kind `None` where none was declared
};

HOSTSUPPORT_EXPORT std::vector<TypedFunctionRecord> sp_RegisteredFunctions();
HOSTSUPPORT_EXPORT std::vector<CommandRecord> sp_RegisteredCommands();
HOSTSUPPORT_EXPORT std::vector<DynFuncCallRecord> sp_RegisteredDynFuncCalls();
HOSTSUPPORT_EXPORT std::vector<DynFuncDefRecord> sp_RegisteredDynFuncDefs();
HOSTSUPPORT_EXPORT std::vector<OptionRecord> sp_RegisteredOptions();

/// What is declared of an option; false if nothing is.
HOSTSUPPORT_EXPORT bool sp_FindOption(const char* name, OptionValue* defaultValue);

/// The entry that is provided under `name` now, or null; the latest definition wins.
HOSTSUPPORT_EXPORT void* sp_FindDynFunc(const char* name);

/// While set, stands in for every definition of `name`: an entry, or null for "nobody provides it".
HOSTSUPPORT_EXPORT void sp_OverrideDynFunc(const char* name, void* entry);
/// Ends `sp_OverrideDynFunc`: the definitions hold again.
HOSTSUPPORT_EXPORT void sp_RestoreDynFunc(const char* name);

/// Runs the functions that were registered for `event`, in the order of registration. All of them
/// run; the first exception that leaves one is raised in the end.
HOSTSUPPORT_EXPORT void sp_RunAutoFuncs(const char* event, void* argument);
