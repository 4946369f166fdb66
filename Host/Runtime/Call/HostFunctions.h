#pragma once

#include "Call/Provider.h"

// The host's vector functions ("interp", "integ", …), as modules call them by name through the
// argument block. What one refuses, the module sees as a non-zero return.

void setHostFunction(const QString& name, Provider provider); ///< an empty one withdraws it
Provider hostFunction(const QString& name);                   ///< empty where there is none
