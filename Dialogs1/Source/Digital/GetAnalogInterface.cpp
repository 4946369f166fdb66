#include "Digital/LogicAnalogInterfaceSheet.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/Arguments.h"
#include "HostSupport/Numbers.h"

#include <algorithm>

static int getAnalogInterface(UserFunctionInterface* call) {
  using Sheet = LogicAnalogInterfaceSheet;
  double* result = call->makeRealResult(call, Sheet::valueCount, nullptr);
  if (!result)
    return 0;
  const auto needed = static_cast<unsigned>(Sheet::firstElement + Sheet::valueCount);
  const double* reals = nullptr;
  const char* const* texts = nullptr;
  unsigned count = 0;
  // What is too short to be a device's result leaves the values as the host makes them.
  if (sp_GetRealIfVector(call, 0, &reals, &count) && count >= needed)
    std::copy_n(reals + Sheet::firstElement, Sheet::valueCount, result);
  else if (sp_GetStringIfVector(call, 0, &texts, &count) && count >= needed)
    std::transform(texts + Sheet::firstElement, texts + needed, result,
                   [](const char* text) { return sp_ConvertEngToReal(text); });
  return 0;
}

static const ScriptFunction declaration("GetAnalogInterface", 1, "A", RealVectorResult,
                                        getAnalogInterface);
