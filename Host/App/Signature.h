#pragma once

#include "Call/FunctionTable.h"

// How functions are shown to script authors.

QString argTypeName(ArgType type);          ///< "real", "string" or "any"
QString resultTypeWords(ResultType result); ///< "real[]", "boolean[]" …; "nothing"
/// "ValueDialog(real[]?, string[]?) → real[]"; a question mark stands behind what may be left out.
QString signatureText(const FunctionInfo& function);
