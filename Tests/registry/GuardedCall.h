#pragma once

#include "Call/HostCall.h"

/// Calls a legacy or typed function as `callHandler` does, with guard bytes on either side of every
/// result that its handler asks for. False where the handler has written to them. What it raises
/// (an entry that nobody provides here) ends the call and is no fault.
bool keepsToItsResult(const FunctionInfo& function, const std::vector<ScriptVector>& arguments);
