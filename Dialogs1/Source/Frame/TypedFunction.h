#pragma once

#include "HostSupport/Registration.h"

/// Declares a typed script function to the host: one static object beside its body.
///
///     static const TypedFunction declaration("EditAxisDialog", 1, 1, {StringArg},
///                                            StringVectorResult, runTypedFunction<editAxis>);
///
/// `types` may name more arguments than `maxArgs`; `multi` is passed to the host beside them.
class TypedFunction : public FuncConstruct {
public:
  TypedFunction(const char* name, int minArgs, int maxArgs, const ArgTypeList<argType>& types,
                ResultType result, TypedHandler handler, const ArgTypeList<MultiDef>& multi = {})
      : FuncConstruct(name, types, multi, minArgs, maxArgs, handler, "", result, FunctionOption()) {
  }
};

using TypedFunctionBody = void (*)(const FuncArgsMinimal& args, FuncResultMinimal* result);

/// The handler of a function whose body makes its result, or none.
template <TypedFunctionBody body>
FUNC_ERROR runTypedFunction(const FuncArgsMinimal& args, FuncResultMinimal* result,
                            YRef<MessageHandler>, const ScpParseContext&, const FunctionRunTime&) {
  body(args, result);
  result->commit();
  return FUNC_OK;
}
