#include "Core/Analog/ArbExpression.h"

QString syntaxScript(const QString& expression) {
  return QLatin1String("length(ParseSimExpression('") + expression +
         QLatin1String("', '', '', 'spice'))");
}

QString usesLogScript(const QString& expression) {
  // The host writes +++ nowhere else: it is found where a call of log has been.
  return QLatin1String("StrStr(ParseSimExpression('") + expression +
         QLatin1String("', 'log,+++', '', 'spice'), '+++')");
}

QString usesMScript(const QString& expression) {
  return QLatin1String("_TestExpressionUsesM('") + expression + QLatin1String("')");
}

bool hasMatchingParentheses(const QString& expression) {
  return expression.count(QLatin1Char('(')) == expression.count(QLatin1Char(')'));
}
