#include "Services/Functions/CurveArguments.h"
#include "Services/Functions/Functions.h"

CallResult integ(const std::vector<ScriptVector>& vectors) {
  return resultOf(runningIntegral(CurveArguments(vectors, 1, 1).curve(0)));
}
