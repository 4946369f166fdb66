#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"
#include "UserFunction.h"

// Argument access for code that has no dialog. Safe for a null block, an index beyond the arguments
// that were passed, and null elements.

/// First element of a string argument; false, with `*out` untouched, if it is missing, empty or no
/// string.
HOSTSUPPORT_EXPORT bool sp_GetScalarString(UserFunctionInterface* call, int index, YString* out);
/// The vector if the argument is one of strings, else null and 0 and false.
HOSTSUPPORT_EXPORT bool sp_GetStringIfVector(UserFunctionInterface* call, int index,
                                             const char* const** data, unsigned* count);
/// The vector if the argument is one of reals, else null and 0 and false.
HOSTSUPPORT_EXPORT bool sp_GetRealIfVector(UserFunctionInterface* call, int index,
                                           const double** data, unsigned* count);
/// An array of `count` slots for host strings; null if the host has none to give.
HOSTSUPPORT_EXPORT char** sp_MakeStringResult(UserFunctionInterface* call, int count);
