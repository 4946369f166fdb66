#include "LaplaceFunctions.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

using Complex = std::complex<double>;

// The last word of a row computes both.
#define KV_FUNCTION(name, computes)                                                                \
  {                                                                                                \
    name, [](double x) { return std::computes(x); },                                               \
        [](const Complex& x) { return std::computes(x); }                                          \
  }

const LaplaceFunction functions[] = {
    KV_FUNCTION("sqrt", sqrt),   KV_FUNCTION("exp", exp),     KV_FUNCTION("ln", log),
    KV_FUNCTION("log", log),     KV_FUNCTION("log10", log10), KV_FUNCTION("sin", sin),
    KV_FUNCTION("cos", cos),     KV_FUNCTION("tan", tan),     KV_FUNCTION("asin", asin),
    KV_FUNCTION("acos", acos),   KV_FUNCTION("atan", atan),   KV_FUNCTION("sinh", sinh),
    KV_FUNCTION("cosh", cosh),   KV_FUNCTION("tanh", tanh),   KV_FUNCTION("asinh", asinh),
    KV_FUNCTION("acosh", acosh), KV_FUNCTION("atanh", atanh),
};

#undef KV_FUNCTION

} // namespace

int laplaceFunctionIndex(std::string_view name) {
  const auto found =
      std::find_if(std::begin(functions), std::end(functions),
                   [name](const LaplaceFunction& function) { return name == function.name; });
  return found == std::end(functions) ? -1 : int(found - std::begin(functions));
}

const LaplaceFunction& laplaceFunction(int index) {
  return functions[index];
}

std::complex<double> wholePower(std::complex<double> base, long exponent) {
  std::complex<double> result = 1;
  for (unsigned long left = static_cast<unsigned long>(std::abs(exponent)); left; left >>= 1) {
    if (left & 1)
      result *= base;
    base *= base;
  }
  return exponent < 0 ? 1.0 / result : result;
}
