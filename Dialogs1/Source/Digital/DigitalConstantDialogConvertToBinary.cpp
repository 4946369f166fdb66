#include "Core/Digital/DigitalConstant.h"
#include "Core/Frame/Texts.h"
#include "Frame/TypedFunction.h"
#include "HostSupport/Numbers.h"

#include <algorithm>
#include <cmath>

namespace {

enum Constant { BitCount, Value, Base };

/// Bits, value and base are texts, as the dialog gives them.
void convertToBinary(const FuncArgsMinimal& args, FuncResultMinimal* result) {
  const Texts constant(args, 0);
  // A width that nobody needs gives no bits, rather than a host that is out of memory.
  const double width = std::floor(sp_ConvertEngToReal(constant.raw(BitCount)));
  const bool isUsable = width >= 1 && width <= double(widestConstant);
  std::vector<bool> bits(isUsable ? static_cast<std::size_t>(width) : 0);
  if (const std::optional<DigitBase> base = digitBases.read(constant.raw(Base)))
    bits = lowestBits(constant.raw(Value), *base, bits.size());
  if (bool* slot = result->makeBools(static_cast<int>(bits.size())))
    std::copy(bits.begin(), bits.end(), slot);
}

const TypedFunction declaration("DigitalConstantDialogConvertToBinary", 1, 1, {StringArg},
                                BoolVectorResult, runTypedFunction<convertToBinary>);

} // namespace
