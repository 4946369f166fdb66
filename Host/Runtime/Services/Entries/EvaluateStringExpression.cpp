#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

YString evaluateStringExpressionEntry(const YString& expression) {
  return asEntry(
      [&] { return askForText(dyn_EvaluateStringExpression.name, textArgument(expression)); });
}
