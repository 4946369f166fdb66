#pragma once

#include "Call/HostCall.h"
#include "Call/Provider.h"
#include "HostSupportQt/Text.h"

// What the C functions behind cross-module entries, and behind operations of the support library,
// have in common: each turns its arguments into vectors, asks the provider, and turns the answer
// into its result.

/// Who serves an entry or operation from now on; an empty one: nobody.
void setEntryProvider(const QString& name, Provider provider);

bool hasProvider(const char* entry);
/// What the provider of an entry gives. Raise `CallError` where there is none, or for an answer of
/// another kind.
CallResult askProvider(const char* entry, const std::vector<ScriptVector>& arguments);
double askForNumber(const char* entry, const std::vector<ScriptVector>& arguments);
std::int32_t askForInteger(const char* entry, const std::vector<ScriptVector>& arguments);
YString askForText(const char* entry, const std::vector<ScriptVector>& arguments);
/// The one number of an answer, a whole one of 32 bits for an integer.
double numberOf(const char* entry, const CallResult& answer);
std::int32_t integerOf(const char* entry, const CallResult& answer);
/// With as many x as y; none where the provider gives none.
CallResult askForCurve(const char* entry, const std::vector<ScriptVector>& arguments);

/// A text as the one argument of a provider, and back.
std::vector<ScriptVector> textArgument(const YString& text);
QString textOf(const std::vector<ScriptVector>& arguments);

/// Modules know one exception type, so an entry raises no other.
template <class Action> auto asEntry(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (...) {
    throw KelvarinException(Tocs(describeException()));
  }
}
