#include "HostSupport/Registry.h"

#include <algorithm>
#include <map>
#include <mutex>

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

/// Made by the first registration, whichever library that is in, and never destroyed: static
/// objects of modules deregister while the process ends.
Registry& registry() {
  static Registry* const instance = new Registry;
  return *instance;
}

using Lock = std::lock_guard<std::mutex>;

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
  Registry& all = registry();
  const Lock lock(all.mutex);
  return all.*records;
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
  Registry& all = registry();
  const Lock lock(all.mutex);
  OptionRecord record{textOf(name), textOf(file), line, defaultValue};
  OptionRecord* const found = findOption(all, record.name);
  if (!found)
    all.options.push_back(std::move(record));
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
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.functions.push_back(
      {this, textOf(name), std::move(typeList), minArgs, maxArgs, handler, result});
}

FuncConstruct::~FuncConstruct() {
  Registry& all = registry();
  const Lock lock(all.mutex);
  removeLast(&all.functions, [this](const auto& record) { return record.owner == this; });
}

ComConstruct::ComConstruct(const char* name, CommandHandler handler, int, const char*) {
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.commands.push_back({textOf(name), handler});
}

RegisterDynFuncCall::RegisterDynFuncCall(void** slot, const char* name, bool required,
                                         const char* file, int line)
    : m_slot(slot) {
  if (!slot)
    return;
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.calls.push_back({slot, *slot, textOf(name), required, textOf(file), line});
  fillSlot(all.calls.back(), findEntry(all, all.calls.back().name));
}

RegisterDynFuncCall::~RegisterDynFuncCall() {
  if (!m_slot)
    return;
  Registry& all = registry();
  const Lock lock(all.mutex);
  removeLast(&all.calls, [this](const DynFuncCallRecord& call) {
    if (call.slot != m_slot)
      return false;
    fillSlot(call, nullptr); // nobody will tell the slot any more when its provider goes
    return true;
  });
}

RegisterDynFuncDef::RegisterDynFuncDef(const char* name, void* entry, const char* file, int line) {
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.definitions.push_back({this, textOf(name), entry, textOf(file), line});
  resolve(all, all.definitions.back().name);
}

RegisterDynFuncDef::~RegisterDynFuncDef() {
  Registry& all = registry();
  const Lock lock(all.mutex);
  std::string name;
  removeLast(&all.definitions, [&](DynFuncDefRecord& record) {
    if (record.owner != this)
      return false;
    name = std::move(record.name);
    return true;
  });
  resolve(all, name);
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
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.autoFuncs.push_back({this, textOf(event), function});
}

AutoFunc::~AutoFunc() {
  Registry& all = registry();
  const Lock lock(all.mutex);
  removeLast(&all.autoFuncs, [this](const auto& record) { return record.owner == this; });
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
  Registry& all = registry();
  const Lock lock(all.mutex);
  const OptionRecord* const found = findOption(all, name ? name : "");
  if (found)
    *defaultValue = found->defaultValue;
  return found != nullptr;
}

void* sp_FindDynFunc(const char* name) {
  Registry& all = registry();
  const Lock lock(all.mutex);
  return findEntry(all, name ? name : "");
}

void sp_OverrideDynFunc(const char* name, void* entry) {
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.overrides[textOf(name)] = entry;
  resolve(all, name ? name : "");
}

void sp_RestoreDynFunc(const char* name) {
  Registry& all = registry();
  const Lock lock(all.mutex);
  all.overrides.erase(textOf(name));
  resolve(all, name ? name : "");
}

void sp_RunAutoFuncs(const char* event, void* argument) {
  // A function may load or unload modules, and so change the list: no lock while one runs, and
  // each is looked up again before its turn.
  const std::vector<AutoFuncRecord> all = snapshot(&Registry::autoFuncs);
  for (const AutoFuncRecord& record : all) {
    if (!record.function || sp_CompareNoCase(record.event.c_str(), event) != 0)
      continue;
    const std::vector<AutoFuncRecord> present = snapshot(&Registry::autoFuncs);
    const bool stands = std::any_of(present.begin(), present.end(),
                                    [&](const auto& other) { return other.owner == record.owner; });
    if (stands)
      record.function(argument);
  }
}
