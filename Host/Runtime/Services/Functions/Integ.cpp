#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

CallResult integ(const std::vector<ScriptVector>& vectors) {
  return resultOf(runningIntegral(FunctionArguments(vectors, 1, 1).curve(0)));
}
