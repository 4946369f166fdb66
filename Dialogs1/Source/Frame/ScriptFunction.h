#pragma once

#include "UserFunction.h"

#include <memory>

/// Declares a script function to the host: one static object beside the handler.
///
///     static const ScriptFunction declaration("ValueDialog", 0, "RSSS", RealVectorResult,
///                                             runDialogFunction<ValueDialog, UserReal>);
///
/// `minArgs` is the least number of arguments that a script must pass; `argTypes` has a letter per
/// argument: S string vector, R real vector, A any value.
class ScriptFunction : public UserFunctionDecl {
public:
  ScriptFunction(const char* name, int minArgs, const char* argTypes, ResultType resultType,
                 UserFunctionHandler handler);

  /// The record declared last; the others follow behind `next`.
  static const UserFunctionDecl* head() { return s_head; }

private:
  static const UserFunctionDecl* s_head;
};

static_assert(sizeof(ScriptFunction) == userFunctionDeclSize);

/// Makes one text the result of a call, nothing where the host has no memory to give: for handlers
/// without a `KelvarinDialog`.
void setStringResult(UserFunctionInterface* call, const char* text);

/// The handler of a dialog that needs no more than to be run: `Type` is what its result is made of.
template <class Dialog, UserDataType Type> int runDialogFunction(UserFunctionInterface* call) {
  const auto dialog = std::make_unique<Dialog>();
  dialog->runDialog(call, Type);
  return 0;
}
