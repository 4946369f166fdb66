#include "Core/Digital/LogicInterfaces.h"
#include "Frame/TypedFunction.h"
#include "HostSupport/Numbers.h"

namespace {

/// Takes what a device's dialog has returned: numbers, or their texts.
void getAnalogInterface(const FuncArgsMinimal& args, FuncResultMinimal* result) {
  constexpr int first = AnalogInterface::firstInResult;
  constexpr int count = AnalogInterface::valueCount;
  double* const values = result->makeReals(count);
  // What is too short to be a device's result leaves the values as the host makes them.
  if (!values || args.count(0) < first + count)
    return;
  const double* const reals = args.reals(0);
  const Texts texts(args, 0);
  for (int i = 0; i < count; ++i)
    values[i] =
        reals ? reals[first + i] : sp_ConvertEngToReal(texts.raw(static_cast<unsigned>(first + i)));
}

const TypedFunction declaration("GetAnalogInterface", 1, 1, {AnyArg}, RealVectorResult,
                                runTypedFunction<getAnalogInterface>);

} // namespace
