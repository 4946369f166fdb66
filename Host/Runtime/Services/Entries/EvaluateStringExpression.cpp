#include "HostSupport/Numbers.h"
#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"
#include "Services/Expressions/ScriptExpression.h"

static constexpr int digits = 15;

CallResult ownEvaluateStringExpression(const std::vector<ScriptVector>& arguments) {
  const ScriptVector value = evaluateScriptExpression(arguments.at(0).strings.at(0));
  if (value.count() != 1 || value.type == UserOpaque)
    throw CallError(QStringLiteral("%1: the expression's value is not one text")
                        .arg(QLatin1String(dyn_EvaluateStringExpression.name)));
  CallResult result;
  result.type = CallResult::Type::String;
  result.strings =
      value.type == UserString
          ? value.strings
          : std::vector<QByteArray>{sp_ConvertRealToPlain(value.reals.front(), digits).c_str()};
  return result;
}

YString evaluateStringExpressionEntry(const YString& expression) {
  return asEntry(
      [&] { return askForText(dyn_EvaluateStringExpression.name, textArgument(expression)); });
}
