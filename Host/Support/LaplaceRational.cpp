#include "LaplaceRational.h"

#include "LaplaceFunctions.h"
#include "XSpiceParseLaplaceArgs.h"

#include <algorithm>
#include <cmath>

namespace {

using Kind = LaplaceStep::Kind;
using Polynomial = LaplaceRational::Polynomial;

constexpr std::size_t mostCoefficients = laplaceCoefficients;

LaplaceRational irrational() {
  LaplaceRational result;
  result.isRational = false;
  return result;
}

void trim(Polynomial* polynomial) {
  while (!polynomial->empty() && polynomial->back() == 0)
    polynomial->pop_back();
}

Polynomial sum(const Polynomial& a, const Polynomial& b, double factorOfB) {
  Polynomial result(std::max(a.size(), b.size()));
  for (std::size_t i = 0; i < a.size(); ++i)
    result[i] = a[i];
  for (std::size_t i = 0; i < b.size(); ++i)
    result[i] += factorOfB * b[i];
  trim(&result);
  return result;
}

/// Nothing where there would be too many coefficients, or one too small to be told from none.
std::optional<Polynomial> product(const Polynomial& a, const Polynomial& b) {
  if (a.empty() || b.empty())
    return Polynomial();
  if (a.size() + b.size() - 1 > mostCoefficients)
    return std::nullopt;
  Polynomial result(a.size() + b.size() - 1);
  for (std::size_t i = 0; i < a.size(); ++i)
    for (std::size_t j = 0; j < b.size(); ++j) {
      if (a[i] == 0 || b[j] == 0) // which is nothing, also of what is not known
        continue;
      const double term = a[i] * b[j];
      if (term == 0)
        return std::nullopt;
      if (std::isinf(term)) // a sum with another one could hide it
        return Polynomial{term};
      result[i + j] += term;
    }
  trim(&result);
  return result;
}

/// Computes an expression step by step, with quotients in the place of numbers.
class RationalMachine {
public:
  std::optional<LaplaceRational> run(const std::vector<LaplaceStep>& steps) {
    for (const LaplaceStep& step : steps) {
      compute(step);
      if (m_isImpossible)
        return std::nullopt;
    }
    return take();
  }

private:
  void compute(const LaplaceStep& step);
  void computeTable(int operands);
  LaplaceRational binary(Kind kind, const LaplaceRational& a, const LaplaceRational& b);
  LaplaceRational added(const LaplaceRational& a, const LaplaceRational& b, double factorOfB);
  LaplaceRational quotient(const std::optional<Polynomial>& numerator,
                           const std::optional<Polynomial>& denominator);
  LaplaceRational divided(const LaplaceRational& a, const LaplaceRational& b);
  LaplaceRational power(const LaplaceRational& base, const LaplaceRational& exponent);
  LaplaceRational constant(double value, bool isKnown);
  LaplaceRational function(const LaplaceStep& step, const LaplaceRational& of);
  void checkFinite(const Polynomial& polynomial);

  LaplaceRational take() {
    LaplaceRational taken = std::move(m_values.back());
    m_values.pop_back();
    return taken;
  }

  std::vector<LaplaceRational> m_values;
  bool m_isImpossible = false;
};

void RationalMachine::compute(const LaplaceStep& step) {
  switch (step.kind) {
  case Kind::Number:
    m_values.push_back(constant(step.number, false));
    break;
  case Kind::S:
    m_values.emplace_back().numerator = {0, 1};
    break;
  case Kind::Negate:
    for (double& coefficient : m_values.back().numerator)
      coefficient = -coefficient;
    break;
  case Kind::Function:
    m_values.push_back(function(step, take()));
    break;
  case Kind::Table:
    computeTable(step.operands);
    break;
  default: {
    const LaplaceRational b = take();
    const LaplaceRational a = take();
    m_values.push_back(binary(step.kind, a, b));
  }
  }
}

/// A table is no quotient; but what stands in it has to be numbers, frequencies that rise from 0 on
/// and magnitudes that are none below it.
void RationalMachine::computeTable(int operands) {
  const auto first = m_values.end() - operands;
  double last = -1;
  for (auto row = first; row != m_values.end(); row += 3) {
    const double frequency = row[0].constant();
    m_isImpossible = m_isImpossible || !row[0].isConstant() || !row[1].isConstant() ||
                     !row[2].isConstant() || frequency <= last || frequency < 0 ||
                     row[1].constant() < 0;
    last = frequency;
  }
  m_values.erase(first, m_values.end());
  m_values.push_back(irrational());
}

LaplaceRational RationalMachine::binary(Kind kind, const LaplaceRational& a,
                                        const LaplaceRational& b) {
  if (kind == Kind::Divide && b.isRational && b.numerator.empty())
    m_isImpossible = true;
  if (!a.isRational || !b.isRational || m_isImpossible)
    return irrational();
  switch (kind) {
  case Kind::Add:
    return added(a, b, 1);
  case Kind::Subtract:
    return added(a, b, -1);
  case Kind::Multiply:
    return quotient(product(a.numerator, b.numerator), product(a.denominator, b.denominator));
  case Kind::Divide:
    return divided(a, b);
  default:
    return power(a, b);
  }
}

LaplaceRational RationalMachine::added(const LaplaceRational& a, const LaplaceRational& b,
                                       double factorOfB) {
  if (a.denominator == b.denominator)
    return quotient(sum(a.numerator, b.numerator, factorOfB), a.denominator);
  const std::optional<Polynomial> left = product(a.numerator, b.denominator);
  const std::optional<Polynomial> right = product(b.numerator, a.denominator);
  if (!left || !right)
    return irrational();
  return quotient(sum(*left, *right, factorOfB), product(a.denominator, b.denominator));
}

LaplaceRational RationalMachine::divided(const LaplaceRational& a, const LaplaceRational& b) {
  return quotient(product(a.numerator, b.denominator), product(a.denominator, b.numerator));
}

void RationalMachine::checkFinite(const Polynomial& polynomial) {
  for (const double coefficient : polynomial)
    m_isImpossible = m_isImpossible || std::isinf(coefficient);
}

LaplaceRational RationalMachine::quotient(const std::optional<Polynomial>& numerator,
                                          const std::optional<Polynomial>& denominator) {
  if (!numerator || !denominator)
    return irrational();
  LaplaceRational result{true, *numerator, *denominator};
  if (result.numerator.empty())
    result.denominator = {1};
  while (result.denominator[0] == 0 && result.numerator[0] == 0) {
    result.numerator.erase(result.numerator.begin());
    result.denominator.erase(result.denominator.begin());
  }
  checkFinite(result.denominator); // before the division hides it
  if (result.denominator.size() == 1 && result.denominator[0] != 1) {
    for (double& coefficient : result.numerator)
      coefficient /= result.denominator[0];
    result.denominator = {1};
    trim(&result.numerator);
  }
  checkFinite(result.numerator);
  checkFinite(result.denominator);
  return result;
}

LaplaceRational RationalMachine::constant(double value, bool isKnown) {
  m_isImpossible = m_isImpossible || std::isinf(value) || (isKnown && std::isnan(value));
  LaplaceRational result;
  if (value != 0)
    result.numerator = {value};
  return result;
}

LaplaceRational RationalMachine::function(const LaplaceStep& step, const LaplaceRational& of) {
  if (!of.isConstant())
    return irrational();
  return constant(laplaceFunction(step.function).ofReal(of.constant()), !std::isnan(of.constant()));
}

LaplaceRational RationalMachine::power(const LaplaceRational& base,
                                       const LaplaceRational& exponent) {
  if (!exponent.isConstant())
    return irrational();
  const double wanted = exponent.constant();
  if (base.isConstant())
    return constant(std::pow(base.constant(), wanted),
                    !std::isnan(base.constant()) && !std::isnan(wanted));
  if (!(std::abs(wanted) < mostCoefficients) || wanted != std::floor(wanted))
    return irrational();
  LaplaceRational result = constant(1, true);
  for (int left = int(std::abs(wanted)); left > 0 && result.isRational; --left)
    result = quotient(product(result.numerator, base.numerator),
                      product(result.denominator, base.denominator));
  return wanted < 0 && result.isRational ? divided(constant(1, true), result) : result;
}

} // namespace

bool LaplaceRational::isConstant() const {
  return isRational && numerator.size() <= 1 && denominator.size() == 1;
}

std::optional<LaplaceRational> rationalOf(const std::vector<LaplaceStep>& steps) {
  return RationalMachine().run(steps);
}
