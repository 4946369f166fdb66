#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

CallResult yFromX(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, 2, 3);
  arguments.checkOrder(2);
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = valuesAt(arguments.curve(0), arguments.number(1, "x"));
  return result;
}
