#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"
#include "Services/Expressions/ScriptExpression.h"

CallResult ownEvaluateExpression(const std::vector<ScriptVector>& arguments) {
  const ScriptVector value = evaluateScriptExpression(arguments.at(0).strings.at(0));
  if (value.type != UserReal || value.reals.size() != 1)
    throw CallError(QStringLiteral("%1: the expression's value is not one number")
                        .arg(QLatin1String(dyn_EvaluateExpression.name)));
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = value.reals;
  return result;
}

double evaluateExpressionEntry(const YString& expression) {
  return asEntry(
      [&] { return askForNumber(dyn_EvaluateExpression.name, textArgument(expression)); });
}
