#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

double evaluateExpressionEntry(const YString& expression) {
  return asEntry(
      [&] { return askForNumber(dyn_EvaluateExpression.name, textArgument(expression)); });
}
