#include "Core/Digital/DigitalConstant.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Registration.h"

#include <algorithm>
#include <cmath>

/// Bits, value and base are texts, as the dialog gives them.
static FUNC_ERROR convertToBinary(const FuncArgsMinimal& args, FuncResultMinimal* result,
                                  YRef<MessageHandler>, const ScpParseContext&,
                                  const FunctionRunTime&) {
  const char* const* texts = args.strings(0);
  const int given = texts ? args.count(0) : 0;
  const auto text = [texts, given](int index) {
    return index < given && texts[index] ? texts[index] : "";
  };
  // A width that nobody needs gives no bits, rather than a host that is out of memory.
  const double width = std::floor(sp_ConvertEngToReal(text(0)));
  const bool isUsable = width >= 1 && width <= double(widestConstant);
  std::vector<bool> bits(isUsable ? static_cast<std::size_t>(width) : 0);
  if (const std::optional<DigitBase> base = digitBase(text(2)))
    bits = lowestBits(text(1), *base, bits.size());
  if (bool* slot = result->makeBools(static_cast<int>(bits.size())))
    std::copy(bits.begin(), bits.end(), slot);
  result->commit();
  return FUNC_OK;
}

static const FuncConstruct declaration("DigitalConstantDialogConvertToBinary", {StringArg}, {}, 1,
                                       1, convertToBinary, "", BoolVectorResult, FunctionOption());
