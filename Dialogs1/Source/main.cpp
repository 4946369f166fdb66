#include "HostSupport/Registration.h"
#include "ScriptFunction.h"

#include <algorithm>
#include <cstring>

// The host unloads the module at exit only where this option says so.
static const MakeOption unloadOption("Dialogs1/Source/main", 31, "UnloadDialogs1Dll", false,
                                     OptionCacheStatus::Cached, false);

// Constant initialisation: declarations of other files push themselves on the list in any order.
const UserFunctionDecl* ScriptFunction::s_head = nullptr;

static ArgType argTypeOf(char letter) {
  switch (letter) {
  case 'S':
    return StringArg;
  case 'R':
    return RealArg;
  default:
    return AnyArg;
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

extern "C" Q_DECL_EXPORT std::uintptr_t udf_GetFunctionDecls(void** firstDecl, std::uint8_t* flags,
                                                             std::uint32_t* sizes) {
  *flags = 0;
  sizes[0] = userFunctionInterfaceSize;
  sizes[1] = userFunctionDeclSize;
  sizes[2] = userFunctionInterfaceVersion;
  *firstDecl = const_cast<UserFunctionDecl*>(ScriptFunction::head());
  return reinterpret_cast<std::uintptr_t>(*firstDecl);
}
