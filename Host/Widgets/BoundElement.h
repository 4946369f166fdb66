#pragma once

#include "HostSupportQt/KV_FunctionDef.h"

#include <QString>

#include <algorithm>

/// Loads `widget` from its element of `call`, by `setValue` or `setStringValue`; true where there
/// is such an element.
template <typename Widget>
bool loadBoundElement(Widget* widget, const UserFunctionInterface* call) {
  if (!call || widget->argIndex < 0 || widget->elementIndex < 0 ||
      widget->argIndex >= std::min(call->argCount, maxUserArguments))
    return false;
  const UserArgument& argument = call->args[widget->argIndex];
  if (!argument.data || static_cast<std::uint32_t>(widget->elementIndex) >= argument.count)
    return false;
  switch (argument.type) {
  case UserReal:
    widget->setValue(static_cast<const double*>(argument.data)[widget->elementIndex]);
    return true;
  case UserString: {
    const char* text = static_cast<const char* const*>(argument.data)[widget->elementIndex];
    widget->setStringValue(QString::fromUtf8(text ? text : ""));
    return true;
  }
  case UserOpaque:
    break;
  }
  return false;
}
