#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"
#include "Services/Numerics/CurveFit.h"

#include <limits>

CallResult pwlCurveFit(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, 2, 3);
  const Curve curve = arguments.curve(0);
  const int segments = arguments.count(1, "segments", 1, std::numeric_limits<int>::max());
  arguments.checkText(2, "kind");
  return resultOf(fitPolyline(curve, segments));
}
