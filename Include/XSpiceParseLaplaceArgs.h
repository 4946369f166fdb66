#pragma once

#include <cstddef>
#include <cstdint>

/// How many coefficients each array of `XSpiceParseLaplaceArgs` holds.
constexpr int laplaceCoefficients = 50;

/// What becomes of a Laplace expression as a lumped network: the record of
/// `sp_ParseLaplaceExpression`. The caller owns all that it points at. The layout is a contract.
///
/// With status 0 the first array holds the numerator and the second the denominator, in ascending
/// powers of s from the constant on, and the counts say how many of them: the degree and one. A
/// coefficient that a parameter in braces has a part in is NaN. What needs more than
/// `laplaceCoefficients` in either is no lumped network. With another status both are untouched; a
/// host whose status comes from elsewhere than its reader may leave the counts at 0.
struct XSpiceParseLaplaceArgs {
  const char* expression;
  double* firstCoefficients; ///< numerator; `laplaceCoefficients` zeros on entry
  std::int32_t firstCount;
  double* secondCoefficients; ///< denominator, likewise
  std::int32_t secondCount;
  std::int32_t status; ///< -1 on entry; 0: a rational polynomial, which a lumped network can have
  std::uint8_t spare;
};

static_assert(offsetof(XSpiceParseLaplaceArgs, expression) == 0);
static_assert(offsetof(XSpiceParseLaplaceArgs, firstCoefficients) == 8);
static_assert(offsetof(XSpiceParseLaplaceArgs, firstCount) == 16);
static_assert(offsetof(XSpiceParseLaplaceArgs, secondCoefficients) == 24);
static_assert(offsetof(XSpiceParseLaplaceArgs, secondCount) == 32);
static_assert(offsetof(XSpiceParseLaplaceArgs, status) == 36);
static_assert(offsetof(XSpiceParseLaplaceArgs, spare) == 40);
static_assert(sizeof(XSpiceParseLaplaceArgs) == 48);
