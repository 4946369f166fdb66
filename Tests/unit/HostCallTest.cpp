// The host's side of a call: arguments, result memory, callbacks.

#include "Call/HostCall.h"

#include "Call/CallMemory.h"
#include "Call/HostFunctions.h"
#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace {

FunctionInfo legacy(UserFunctionHandler handler) {
  FunctionInfo info;
  info.name = QStringLiteral("Legacy");
  info.maxArgs = maxUserArguments;
  info.legacyHandler = handler;
  return info;
}

FunctionInfo typed(TypedHandler handler) {
  FunctionInfo info;
  info.kind = FunctionInfo::Kind::Typed;
  info.name = QStringLiteral("Typed");
  info.maxArgs = maxUserArguments;
  info.typedHandler = handler;
  return info;
}

template <class Action> std::string faultOf(Action action) {
  try {
    action();
  } catch (const CallError& error) {
    return error.what();
  }
  return std::string();
}

const ScriptVector texts = ScriptVector::ofStrings({"a", QByteArray("b\0c", 3), "\xff"});

} // namespace

TEST(HostCall, checksCountAndKind) {
  FunctionInfo function = legacy(nullptr);
  function.argTypes = {RealArg, StringArg, AnyArg};
  function.minArgs = 1;
  function.maxArgs = 3;
  const ScriptVector real = ScriptVector::ofReals({1});
  ScriptVector opaque;
  opaque.type = UserOpaque;
  FunctionInfo single = function;
  single.maxArgs = 1;
  const struct {
    FunctionInfo function;
    std::vector<ScriptVector> arguments;
    const char* fault;
  } cases[] = {
      {function, {}, "Legacy: takes 1 to 3 arguments, none was given."},
      {function, {real, texts, real, real}, "Legacy: takes 1 to 3 arguments, 4 were given."},
      {single, {real, texts}, "Legacy: takes 1 argument, 2 were given."},
      {function, {texts}, "Legacy: argument 1 must be a real vector, a string vector was given."},
      {function,
       {real, real},
       "Legacy: argument 2 must be a string vector, a real vector was given."},
      {function,
       {real, opaque},
       "Legacy: argument 2 must be a string vector, an opaque value was given."},
      {function, {real, texts, opaque}, ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(faultOf([&] { checkArguments(c.function, c.arguments); }), c.fault);
}

TEST(HostCall, refusesWhatTheRecordsCannotHold) {
  const FunctionInfo none = legacy([](UserFunctionInterface*) { return 0; });
  ScriptVector curve = ScriptVector::ofReals({1, 2, 3});
  curve.references = {1, 2};
  EXPECT_EQ(faultOf([&] { callHandler(none, {curve}); }),
            "Legacy: argument 1 has 3 values of y but 2 of x");
  curve.references.clear();
  for (int divisions : {0, -1, 2}) {
    curve.divisions = divisions;
    EXPECT_NE(faultOf([&] { callHandler(none, {curve}); }), "") << divisions;
  }
  EXPECT_EQ(faultOf([&] { callHandler(none, std::vector<ScriptVector>(33)); }),
            "Legacy: a call holds at most 32 arguments, 33 were given");
}

TEST(HostCall, passesArguments) {
  ScriptVector curve = ScriptVector::ofReals({1, std::nan("")});
  curve.references = {5, 6};
  ScriptVector opaque;
  opaque.type = UserOpaque;
  opaque.opaque = &curve;
  const CallResult result = callHandler(
      legacy([](UserFunctionInterface* call) {
        const auto* strings = static_cast<char**>(call->args[0].data);
        const bool good =
            call->argCount == 4 && call->args[0].type == UserString && call->args[0].count == 3 &&
            std::strcmp(strings[1], "b") == 0 && std::strcmp(strings[2], "\xff") == 0 &&
            call->args[1].count == 2 && std::isnan(static_cast<double*>(call->args[1].data)[1]) &&
            static_cast<const double*>(call->args[1].reference)[1] == 6 &&
            call->args[2].type == UserOpaque && *static_cast<void**>(call->args[2].data) &&
            call->args[3].count == 0 && !call->args[4].data && call->args[4].count == 0;
        std::memset(strings[0], 'x', 1); // the handler's copy, not the caller's
        *call->makeRealResult(call, 1, nullptr) = good;
        return 0;
      }),
      {texts, curve, opaque, ScriptVector()});
  EXPECT_EQ(result.reals, std::vector<double>{1});
  EXPECT_EQ(texts.strings.front(), "a");
}

TEST(HostCall, takesResultsOver) {
  // The last vector counts; null slots are empty; one text may stand in several slots.
  const CallResult strings = callHandler(legacy([](UserFunctionInterface* call) {
                                           call->makeRealResult(call, 3, nullptr);
                                           char** first = call->makeStringResult(call, 2);
                                           first[0] = call->hostString("kept");
                                           first[1] = call->hostString("lost");
                                           char** last = call->makeStringResult(call, 4);
                                           last[0] = last[1] = first[0];
                                           last[2] = YString("own").copy();
                                           call->hostString("never placed");
                                           return 0;
                                         }),
                                         {});
  EXPECT_EQ(strings.type, CallResult::Type::String);
  EXPECT_EQ(strings.strings, (std::vector<QByteArray>{"kept", "kept", "own", ""}));

  const CallResult empty = callHandler(
      legacy([](UserFunctionInterface* call) { return call->makeStringResult(call, 0) ? 0 : 1; }),
      {});
  EXPECT_TRUE(empty.made());
  EXPECT_EQ(empty.count(), 0u);
}

TEST(HostCall, refusesAbsurdRequests) {
  const CallResult result =
      callHandler(legacy([](UserFunctionInterface* call) {
                    UserFunctionInterface foreign = *call;
                    const bool refused =
                        !call->makeStringResult(call, -1) &&
                        !call->makeRealResult(call, 100'000'001, nullptr) &&
                        !call->makeRealResult(nullptr, 1, nullptr) &&
                        !call->makeStringResult(&foreign, 1) &&
                        std::strcmp(call->hostString(nullptr), "") == 0 &&
                        call->callFunction(call, nullptr, nullptr, 1, nullptr, nullptr) != 0;
                    return refused ? 0 : 1;
                  }),
                  {});
  EXPECT_FALSE(result.made());
}

TEST(HostCall, nests) {
  static const FunctionInfo inner = legacy([](UserFunctionInterface* call) {
    *call->makeStringResult(call, 1) = call->hostString("inner");
    return 0;
  });
  const CallResult outer = callHandler(legacy([](UserFunctionInterface* call) {
                                         char** out = call->makeStringResult(call, 2);
                                         out[0] = call->hostString("outer");
                                         const QByteArray text =
                                             callHandler(inner, {}).strings.front();
                                         out[1] = call->hostString(text);
                                         return 0;
                                       }),
                                       {});
  EXPECT_EQ(outer.strings, (std::vector<QByteArray>{"outer", "inner"}));

  static FunctionInfo endless;
  static int depth = 0;
  endless = legacy([](UserFunctionInterface*) {
    ++depth;
    callHandler(endless, {});
    return 0;
  });
  EXPECT_NE(faultOf([] { callHandler(endless, {}); }).find("nested more than"), std::string::npos);
  EXPECT_GT(depth, 10);
}

TEST(HostCall, turnsExceptionsIntoErrors) {
  const struct {
    UserFunctionHandler handler;
    const char* fault;
  } cases[] = {
      {[](UserFunctionInterface*) -> int { throw KelvarinException("plain"); }, "plain"},
      {[](UserFunctionInterface*) -> int { throw DynFuncException("dyn_X"); },
       "*** FATAL ERROR *** Unresolved dynamic function 'dyn_X' called"},
      {[](UserFunctionInterface*) -> int { throw std::runtime_error("std"); }, "std"},
      {[](UserFunctionInterface*) -> int { throw std::bad_alloc(); }, "not enough memory"},
      {[](UserFunctionInterface*) -> int { throw 5; }, "an unknown exception"},
      {[](UserFunctionInterface*) { return 3; }, "Legacy: the handler returned 3"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(faultOf([&] { callHandler(legacy(c.handler), {texts}); }), c.fault);
}

TEST(HostCall, failsTheNthCallback) {
  const FunctionInfo function = legacy([](UserFunctionInterface* call) {
    char** out = call->makeStringResult(call, 2);
    for (int i = 0; out && i < 2; ++i)
      out[i] = call->hostString("text");
    return 0;
  });
  const struct {
    int n;
    bool andAllAfter;
    std::vector<QByteArray> result;
  } cases[] = {{1, false, {}},
               {2, false, {"", "text"}},
               {3, false, {"text", ""}},
               {2, true, {"", ""}},
               {4, false, {"text", "text"}}};
  for (const auto& c : cases) {
    failHostCallback(c.n, c.andAllAfter);
    EXPECT_EQ(callHandler(function, {}).strings, c.result) << c.n;
  }
  EXPECT_EQ(failHostCallback(0), 3);
}

TEST(HostCall, runsHostFunctions) {
  // Doubles the first operand; complains of any other number of them.
  setHostFunction(QStringLiteral("twice"), [](const std::vector<ScriptVector>& operands) {
    if (operands.size() != 1)
      throw CallError(QStringLiteral("takes one operand"));
    CallResult result;
    result.type = CallResult::Type::Real;
    result.reals = operands[0].reals;
    result.references = operands[0].references;
    for (double& value : result.reals)
      value *= 2;
    return result;
  });
  static std::string reported;
  sp_SetMessageSink([](const char* text) { reported = text; });
  const FunctionInfo function = legacy([](UserFunctionInterface* call) {
    double y[] = {1, 2};
    const double x[] = {3, 4};
    UserArgument operand{};
    operand.data = y;
    operand.reference = x;
    operand.count = 2;
    UserArgument once{};
    UserArgument again{};
    if (call->callFunction(call, "twice", &operand, 1, &once, nullptr) != 0 ||
        call->callFunction(call, "twice", &once, 1, &again, nullptr) != 0)
      return 1;
    if (call->callFunction(call, "twice", &operand, 0, &once, nullptr) == 0 || again.count != 2)
      return 2;
    double* out = call->makeRealResult(call, 2, nullptr);
    out[0] = static_cast<double*>(again.data)[1];
    out[1] = static_cast<const double*>(again.reference)[1];
    if (call->callFunction(call, "thrice", &operand, 1, &again, nullptr) == 0 ||
        again.type != UserString || again.count != 1 ||
        std::strcmp(static_cast<char**>(again.data)[0], "the host has no such function") != 0)
      return 3;
    return call->callFunction(call, "thrice", &operand, 1, nullptr, nullptr) == 0 ? 4 : 0;
  });
  EXPECT_EQ(callHandler(function, {}).reals, (std::vector<double>{8, 4}));
  EXPECT_EQ(reported, "thrice: the host has no such function");
  sp_SetMessageSink(nullptr);
  setHostFunction(QStringLiteral("twice"), {});
  EXPECT_FALSE(hostFunction(QStringLiteral("twice")));
}

TEST(HostCall, runsTypedFunctions) {
  ScriptVector curves = ScriptVector::ofReals({1, 2, 3, 4});
  curves.references = {5, 6, 7, 8};
  curves.divisions = 2;
  const TypedHandler handler = [](const FuncArgsMinimal& args, FuncResultMinimal* result,
                                  YRef<MessageHandler>, const ScpParseContext&,
                                  const FunctionRunTime&) {
    const bool good = args.argCount() == 2 && args.count(0) == 2 && args.divisions(0) == 2 &&
                      args.references(0)[3] == 8 && !args.strings(0) && !args.string(0) &&
                      args.count(1) == 3 && std::strcmp(args.string(1), "a") == 0 &&
                      !args.reals(1) && !args.opaque(1) && !args.reals(-1) && !args.string(2) &&
                      args.count(2) == 0 && args.divisions(99) == 1;
    bool* out = result->makeBools(2);
    out[0] = good;
    result->commit();
    return FUNC_OK;
  };
  const CallResult result = callHandler(typed(handler), {curves, texts});
  EXPECT_EQ(result.type, CallResult::Type::Bool);
  EXPECT_EQ(result.bools, (std::vector<bool>{true, false}));

  const TypedHandler uncommitted = [](const FuncArgsMinimal&, FuncResultMinimal* out,
                                      YRef<MessageHandler>, const ScpParseContext&,
                                      const FunctionRunTime&) {
    out->makeStrings(1)[0] = YString("not committed").copy();
    return FUNC_OK;
  };
  EXPECT_FALSE(callHandler(typed(uncommitted), {}).made());
}
