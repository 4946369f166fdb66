#include "HostSupport/Registry.h"

#include "Locked.h"

#include <algorithm>
#include <exception>
#include <map>

namespace {

struct AutoFuncRecord {
  const AutoFunc* owner;
  std::string event;
  void (*function)(void*);
};

struct Registry {
  std::mutex mutex;
  std::vector<TypedFunctionRecord> functions;
  std::vector<CommandRecord> commands;
  std::vector<DynFuncCallRecord> calls;
  std::vector<DynFuncDefRecord> definitions;
  std::map<std::string, void*, std::less<>> overrides;
  std::vector<OptionRecord> options;
  std::vector<AutoFuncRecord> autoFuncs;
};

std::string textOf(const char* text) {
  return text ? text : "";
}

/// Removes the latest record that fits; the objects of a module go in the reverse of the order in
/// which they came, so it is near the end.
template <class Record, class Fits> void removeLast(std::vector<Record>* records, Fits fits) {
  const auto found = std::find_if(records->rbegin(), records->rend(), fits);
  if (found != records->rend())
    records->erase(std::next(found).base());
}

template <class Record> std::vector<Record> snapshot(const std::vector<Record> Registry::*records) {
  const Locked<Registry> all;
  return (*all).*records;
}

void* findEntry(const Registry& all, std::string_view name) {
  const auto standIn = all.overrides.find(name);
  if (standIn != all.overrides.end())
    return standIn->second;
  const auto definition =
      std::find_if(all.definitions.rbegin(), all.definitions.rend(),
                   [name](const DynFuncDefRecord& record) { return record.name == name; });
  return definition != all.definitions.rend() ? definition->entry : nullptr;
}

void fillSlot(const DynFuncCallRecord& call, void* entry) {
  *call.slot = entry ? entry : call.unresolved;
}

void resolve(const Registry& all, std::string_view name) {
  void* entry = findEntry(all, name);
  for (const DynFuncCallRecord& call : all.calls)
    if (call.name == name)
      fillSlot(call, entry);
}

OptionRecord* findOption(Registry& all, std::string_view name) {
  const auto found =
      std::find_if(all.options.begin(), all.options.end(),
                   [name](const OptionRecord& option) { return option.name == name; });
  return found != all.options.end() ? &*found : nullptr;
}

void declareOption(const char* file, int line, const YString& name,
                   const OptionValue& defaultValue) {
  const Locked<Registry> all;
  OptionRecord record{textOf(name), textOf(file), line, defaultValue};
  OptionRecord* const found = findOption(*all, record.name);
  if (!found)
    all->options.push_back(std::move(record));
  else if (defaultValue.kind() != OptionValue::Kind::None)
    *found = std::move(record);
}

} // namespace

FuncConstruct::FuncConstruct(const char* name, ArgTypeList<argType> types, ArgTypeList<MultiDef>,
                             int minArgs, int maxArgs, TypedHandler handler, const char*,
                             PythonReturnType result, const FunctionOption&) {
  std::vector<ArgType> typeList;
  for (int i = 0; i < types.count(); ++i)
    typeList.push_back(types[i]);
  const Locked<Registry> all;
  all->functions.push_back(
      {this, textOf(name), std::move(typeList), minArgs, maxArgs, handler, result});
}

FuncConstruct::~FuncConstruct() {
  const Locked<Registry> all;
  removeLast(&all->functions, [this](const auto& record) { return record.owner == this; });
}

ComConstruct::ComConstruct(const char* name, CommandHandler handler, int, const char*) {
  const Locked<Registry> all;
  all->commands.push_back({textOf(name), handler});
}

RegisterDynFuncCall::RegisterDynFuncCall(void** slot, const char* name, bool required,
                                         const char* file, int line)
    : m_slot(slot) {
  if (!slot)
    return;
  const Locked<Registry> all;
  all->calls.push_back({slot, *slot, textOf(name), required, textOf(file), line});
  fillSlot(all->calls.back(), findEntry(*all, all->calls.back().name));
}

RegisterDynFuncCall::~RegisterDynFuncCall() {
  if (!m_slot)
    return;
  const Locked<Registry> all;
  removeLast(&all->calls, [this](const DynFuncCallRecord& call) {
    if (call.slot != m_slot)
      return false;
    fillSlot(call, nullptr); // nobody will tell the slot any more when its provider goes
    return true;
  });
}

RegisterDynFuncDef::RegisterDynFuncDef(const char* name, void* entry, const char* file, int line) {
  const Locked<Registry> all;
  all->definitions.push_back({this, textOf(name), entry, textOf(file), line});
  resolve(*all, all->definitions.back().name);
}

RegisterDynFuncDef::~RegisterDynFuncDef() {
  const Locked<Registry> all;
  std::string name;
  removeLast(&all->definitions, [&](DynFuncDefRecord& record) {
    if (record.owner != this)
      return false;
    name = std::move(record.name);
    return true;
  });
  resolve(*all, name);
}

MakeOption::MakeOption(const char* file, int line, const YString& name, bool, OptionCacheStatus,
                       bool) {
  declareOption(file, line, name, OptionValue());
}

MakeOption::MakeOption(const char* file, int line, const YString& name,
                       const OptionValue& defaultValue) {
  declareOption(file, line, name, defaultValue);
}

void sp_MakeColourOption(const char* file, int line, const YString& key, const char* value) {
  declareOption(file, line, key, value && *value ? OptionValue(value) : OptionValue());
}

AutoFunc::AutoFunc(const char* event, void (*function)(void*), const char*) {
  const Locked<Registry> all;
  all->autoFuncs.push_back({this, textOf(event), function});
}

AutoFunc::~AutoFunc() {
  const Locked<Registry> all;
  removeLast(&all->autoFuncs, [this](const auto& record) { return record.owner == this; });
}

std::vector<TypedFunctionRecord> sp_RegisteredFunctions() {
  return snapshot(&Registry::functions);
}

std::vector<CommandRecord> sp_RegisteredCommands() {
  return snapshot(&Registry::commands);
}

std::vector<DynFuncCallRecord> sp_RegisteredDynFuncCalls() {
  return snapshot(&Registry::calls);
}

std::vector<DynFuncDefRecord> sp_RegisteredDynFuncDefs() {
  return snapshot(&Registry::definitions);
}

std::vector<OptionRecord> sp_RegisteredOptions() {
  return snapshot(&Registry::options);
}

bool sp_FindOption(const char* name, OptionValue* defaultValue) {
  const Locked<Registry> all;
  const OptionRecord* const found = findOption(*all, name ? name : "");
  if (found)
    *defaultValue = found->defaultValue;
  return found != nullptr;
}

void* sp_FindDynFunc(const char* name) {
  const Locked<Registry> all;
  return findEntry(*all, name ? name : "");
}

void sp_OverrideDynFunc(const char* name, void* entry) {
  const Locked<Registry> all;
  all->overrides[textOf(name)] = entry;
  resolve(*all, name ? name : "");
}

void sp_RestoreDynFunc(const char* name) {
  const Locked<Registry> all;
  all->overrides.erase(textOf(name));
  resolve(*all, name ? name : "");
}

void sp_RunAutoFuncs(const char* event, void* argument) {
  // A function may load or unload modules, and so change the list: no lock while one runs, and
  // each is looked up again before its turn.
  const std::vector<AutoFuncRecord> all = snapshot(&Registry::autoFuncs);
  std::exception_ptr fault; // of the first that has one; the others get their turn
  for (const AutoFuncRecord& record : all) {
    if (!record.function || sp_CompareNoCase(record.event.c_str(), event) != 0)
      continue;
    const std::vector<AutoFuncRecord> present = snapshot(&Registry::autoFuncs);
    const bool stands = std::any_of(present.begin(), present.end(), [&](const auto& other) {
      return other.owner == record.owner && other.function == record.function;
    });
    if (!stands)
      continue;
    try {
      record.function(argument);
    } catch (...) {
      if (!fault)
        fault = std::current_exception();
    }
  }
  if (fault)
    std::rethrow_exception(fault);
}
