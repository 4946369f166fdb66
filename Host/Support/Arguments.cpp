#include "HostSupport/Arguments.h"

#include <algorithm>

namespace {

/// The argument if it was passed, is of that kind and has its data; else null.
const UserArgument* vectorArgument(const UserFunctionInterface* call, int index,
                                   UserDataType type) {
  if (!call || index < 0 || index >= std::min(call->argCount, maxUserArguments))
    return nullptr;
  const UserArgument& argument = call->args[index];
  const bool hasData = argument.data || argument.count == 0;
  return argument.type == type && hasData ? &argument : nullptr;
}

template <class Element> bool getVector(const UserFunctionInterface* call, int index,
                                        UserDataType type, const Element** data, unsigned* count) {
  const UserArgument* argument = vectorArgument(call, index, type);
  if (data)
    *data = argument ? static_cast<const Element*>(argument->data) : nullptr;
  if (count)
    *count = argument ? argument->count : 0;
  return argument != nullptr;
}

} // namespace

bool sp_GetScalarString(UserFunctionInterface* call, int index, YString* out) {
  const UserArgument* argument = vectorArgument(call, index, UserString);
  if (!argument || argument->count == 0)
    return false;
  const char* text = *static_cast<char* const*>(argument->data);
  if (!text)
    return false;
  if (out)
    *out = text;
  return true;
}

bool sp_GetStringIfVector(UserFunctionInterface* call, int index, const char* const** data,
                          unsigned* count) {
  return getVector(call, index, UserString, data, count);
}

bool sp_GetRealIfVector(UserFunctionInterface* call, int index, const double** data,
                        unsigned* count) {
  return getVector(call, index, UserReal, data, count);
}

char** sp_MakeStringResult(UserFunctionInterface* call, int count) {
  if (!call || !call->makeStringResult || count < 0)
    return nullptr;
  return call->makeStringResult(call, count);
}
