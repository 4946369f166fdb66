#include "Services/Expressions/SimExpression.h"
#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

#include <algorithm>

CallResult testExpressionUsesM(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, testExpressionUsesMFunction.arguments);
  const auto tokens = readSimExpression(arguments.text(0, "expression").toStdString());
  const auto isM = [](const SimToken& token) {
    return token.kind == SimToken::Kind::Name && isSimName(token.text, "m");
  };
  return resultOf(tokens && std::any_of(tokens->begin(), tokens->end(), isM));
}
