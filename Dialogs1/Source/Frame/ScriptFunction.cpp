#include "Frame/ScriptFunction.h"

#include "HostSupport/Arguments.h"

#include <algorithm>
#include <cstring>

// Constant initialisation: declarations of other files push themselves on the list in any order.
const UserFunctionDecl* ScriptFunction::s_head = nullptr;

static std::uint32_t argTypeOf(char letter) {
  switch (letter) {
  case 'S':
    return StringArg;
  case 'R':
    return RealArg;
  case 'A':
    return AnyArg;
  default:
    return 0; // no such type: the host refuses the module
  }
}

ScriptFunction::ScriptFunction(const char* functionName, int leastArgs, const char* letters,
                               ResultType type, UserFunctionHandler function)
    : UserFunctionDecl{} {
  std::strncpy(name, functionName, sizeof name - 1);
  const auto count = std::min<std::size_t>(std::strlen(letters), maxUserArguments);
  std::transform(letters, letters + count, argTypes, argTypeOf);
  minArgs = static_cast<std::uint16_t>(leastArgs);
  maxArgs = static_cast<std::uint16_t>(count);
  handler = function;
  resultType = type;
  declVersion = 1;
  next = s_head;
  s_head = this;
}

void setStringResult(UserFunctionInterface* call, const char* text) {
  if (char** slot = sp_MakeStringResult(call, 1))
    *slot = call->hostString(text);
}
