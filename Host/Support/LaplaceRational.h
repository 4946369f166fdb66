#pragma once

#include "HostSupport/LaplaceStep.h"

#include <optional>
#include <vector>

/// A part of a Laplace expression as a quotient of polynomials in s, as far as it is one.
///
/// Polynomials have ascending powers and no zeros at their end, so that an empty one is zero.
/// Powers of s that both have are cancelled, and a constant denominator is 1.
struct LaplaceRational {
  using Polynomial = std::vector<double>;

  bool isRational = true;
  Polynomial numerator;
  Polynomial denominator{1};

  bool isConstant() const;
  double constant() const { return numerator.empty() ? 0 : numerator[0]; }
};

/// The whole of an expression; nothing where a constant in it cannot be.
std::optional<LaplaceRational> rationalOf(const std::vector<LaplaceStep>& steps);
