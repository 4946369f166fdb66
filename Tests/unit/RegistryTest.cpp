#include "HostSupport/Registry.h"
#include "HostSupport/KelvarinException.h"

#include "DynFunc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

int one() {
  return 1;
}
int two() {
  return 2;
}

constexpr DynEntry<int()> testEntry{"test_Entry", "RegistryTest.h", 12};

void* entryOf(int (*function)()) {
  return reinterpret_cast<void*>(function);
}

struct Provider {
  explicit Provider(int (*function)())
      : m_definition(testEntry.name, entryOf(function), "provider.cpp", 3) {}
  RegisterDynFuncDef m_definition;
};

struct User {
  DynSlot<testEntry> slot;
  RegisterDynFuncCall registration{slot.address(), testEntry.name, true, testEntry.file,
                                   testEntry.line};
};

TEST(Registry, EntryIsResolvedWheneverItsProviderAppears) {
  User before;
  EXPECT_THROW(before.slot(), DynFuncException);
  {
    const Provider provider(one);
    EXPECT_EQ(before.slot(), 1);
    User after;
    EXPECT_EQ(after.slot(), 1);
    {
      const Provider latest(two);
      EXPECT_EQ(before.slot(), 2);
      EXPECT_EQ(after.slot(), 2);
    }
    EXPECT_EQ(after.slot(), 1);
  }
  EXPECT_THROW(before.slot(), DynFuncException);
  EXPECT_EQ(sp_FindDynFunc(testEntry.name), nullptr);
}

TEST(Registry, ProvidersMayGoInAnyOrder) {
  User user;
  auto first = std::make_unique<Provider>(one);
  const Provider second(two);
  first.reset();
  EXPECT_EQ(user.slot(), 2);
}

TEST(Registry, OverrideStandsInForEveryDefinition) {
  User user;
  const auto provider = std::make_unique<Provider>(one);
  sp_OverrideDynFunc(testEntry.name, entryOf(two));
  EXPECT_EQ(user.slot(), 2);
  const Provider latest(one);
  EXPECT_EQ(user.slot(), 2);
  sp_OverrideDynFunc(testEntry.name, nullptr);
  EXPECT_THROW(user.slot(), DynFuncException);
  sp_RestoreDynFunc(testEntry.name);
  EXPECT_EQ(user.slot(), 1);
}

TEST(Registry, SlotIsLeftAloneOnceItsUserHasGone) {
  DynSlot<testEntry> slot;
  {
    const Provider provider(one);
    const RegisterDynFuncCall call(slot.address(), testEntry.name, false, "", 0);
    EXPECT_EQ(slot(), 1);
  }
  EXPECT_THROW(slot(), DynFuncException);
  const Provider provider(two);
  EXPECT_THROW(slot(), DynFuncException);
}

TEST(Registry, RecordsSayWhereTheyComeFrom) {
  User user;
  const Provider provider(one);
  const auto calls = sp_RegisteredDynFuncCalls();
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back().name, "test_Entry");
  EXPECT_EQ(calls.back().file, "RegistryTest.h");
  EXPECT_EQ(calls.back().line, 12);
  EXPECT_TRUE(calls.back().required);
  EXPECT_NE(calls.back().unresolved, *calls.back().slot);
  EXPECT_EQ(sp_RegisteredDynFuncDefs().back().file, "provider.cpp");
}

FUNC_ERROR handler(const FuncArgsMinimal&, FuncResultMinimal*, YRef<MessageHandler>,
                   const ScpParseContext&, const FunctionRunTime&) {
  return FUNC_OK;
}
COMERROR command(int, char**, YRef<MessageHandler>, const ScpParseContext&) {
  return COM_OK;
}

TEST(Registry, FunctionsStandAsLongAsTheirObjects) {
  const std::size_t before = sp_RegisteredFunctions().size();
  {
    const FuncConstruct function("Typed", {StringArg, RealArg}, {}, 1, 2, handler, "",
                                 RealVectorResult, {});
    const auto functions = sp_RegisteredFunctions();
    ASSERT_EQ(functions.size(), before + 1);
    EXPECT_EQ(functions.back().name, "Typed");
    EXPECT_EQ(functions.back().types, (std::vector<ArgType>{StringArg, RealArg}));
    EXPECT_EQ(functions.back().maxArgs, 2);
    EXPECT_EQ(functions.back().result, RealVectorResult);
    EXPECT_EQ(functions.back().handler, handler);
  }
  EXPECT_EQ(sp_RegisteredFunctions().size(), before);
}

TEST(Registry, BadNamesDoNoHarm) {
  const std::string longName(100'000, 'n');
  for (const char* name : {static_cast<const char*>(nullptr), "", longName.c_str()}) {
    const FuncConstruct function(name, {}, {}, 0, 0, nullptr, nullptr, NoResult, {});
    const RegisterDynFuncDef definition(name, nullptr, nullptr, -1);
    const RegisterDynFuncCall call(nullptr, name, true, nullptr, -1);
    const AutoFunc autoFunc(name, nullptr, nullptr);
    sp_RunAutoFuncs(name, nullptr);
    sp_OverrideDynFunc(name, nullptr);
    sp_RestoreDynFunc(name);
    EXPECT_EQ(sp_FindDynFunc(name), nullptr);
  }
  const ComConstruct commandObject("TestCommand", command, 0, nullptr);
  EXPECT_EQ(sp_RegisteredCommands().back().name, "TestCommand");
}

std::string trace;
std::unique_ptr<AutoFunc> later;

TEST(Registry, AutoFuncsRunInOrderAndOnlyWhileTheyStand) {
  const AutoFunc first(
      "TestEvent",
      [](void* text) {
        trace += static_cast<const char*>(text);
        later.reset(); // as unloading a module would
      },
      "");
  const AutoFunc other(
      "OtherEvent", [](void*) { trace += "other"; }, "");
  const AutoFunc second(
      "TestEvent", [](void*) { trace += "2"; }, "");
  later = std::make_unique<AutoFunc>(
      "TestEvent", [](void*) { trace += "gone"; }, "");
  sp_RunAutoFuncs("TestEvent", const_cast<char*>("1"));
  EXPECT_EQ(trace, "12");
}

TEST(Registry, AnAutoFuncThatFailsStopsNoOther) {
  trace.clear();
  const AutoFunc bad(
      "FaultyEvent", [](void*) { throw KelvarinException("first"); }, "");
  const AutoFunc worse(
      "FaultyEvent", [](void*) { throw 42; }, "");
  const AutoFunc good(
      "FaultyEvent", [](void*) { trace += "ran"; }, "");
  try {
    sp_RunAutoFuncs("FaultyEvent", nullptr);
    ADD_FAILURE() << "nobody was told";
  } catch (const KelvarinException& fault) {
    EXPECT_STREQ(fault.message(), "first");
  }
  EXPECT_EQ(trace, "ran");
}

TEST(Registry, OptionsAreDeclaredOnce) {
  const std::size_t before = sp_RegisteredOptions().size();
  for (int i = 0; i < 3; ++i)
    const MakeOption option("a.cpp", 7, "TestDeclared", false, OptionCacheStatus::Cached, false);
  const auto options = sp_RegisteredOptions();
  ASSERT_EQ(options.size(), before + 1);
  EXPECT_EQ(options.back().name, "TestDeclared");
  EXPECT_EQ(options.back().file, "a.cpp");
  EXPECT_EQ(options.back().line, 7);
}

} // namespace
