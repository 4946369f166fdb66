#pragma once

#include <cstddef>
#include <cstdint>

/// How many coefficients each array of `XSpiceParseLaplaceArgs` holds.
constexpr int laplaceCoefficients = 50;

/// What becomes of a Laplace expression as a lumped network: the record of
/// `sp_ParseLaplaceExpression`. The caller owns all that it points at. The layout is a contract.
struct XSpiceParseLaplaceArgs {
  const char* expression;
  double* firstCoefficients; ///< `laplaceCoefficients` zeros
  std::int32_t firstCount;
  double* secondCoefficients; ///< `laplaceCoefficients` zeros
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
