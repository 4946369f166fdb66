#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

CallResult length(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, lengthFunction.arguments);
  return resultOf(double(arguments.vector(0).count()));
}
