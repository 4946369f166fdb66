#pragma once

#include <complex>
#include <string_view>

// The functions of Laplace expressions, each for numbers and for the complex plane.

struct LaplaceFunction {
  const char* name;
  double (*ofReal)(double);
  std::complex<double> (*ofComplex)(const std::complex<double>&);
};

/// Which function has this name, in small letters; -1 for none.
int laplaceFunctionIndex(std::string_view name);
const LaplaceFunction& laplaceFunction(int index);

/// `base` to a whole power, exactly where the product is.
std::complex<double> wholePower(std::complex<double> base, long exponent);
