#pragma once

#include "Call/ScriptVector.h"

#include <functional>

/// What serves a host function or a cross-module entry, be it the host's own, a test's or a
/// script's: it takes the arguments of one call and gives its result. What it refuses it refuses
/// with a `CallError`.
using Provider = std::function<CallResult(const std::vector<ScriptVector>& arguments)>;
