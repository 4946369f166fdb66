#include "HostSupport/LaplaceExpression.h"

#include "LaplaceFunctions.h"
#include "LaplaceRational.h"
#include "LaplaceReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Complex = std::complex<double>;
using Kind = LaplaceStep::Kind;

constexpr double pi = 3.14159265358979323846;
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double mostWholePower = 1e6; ///< beyond it logarithms are as good

Complex power(const Complex& base, const Complex& exponent) {
  const double whole = exponent.real();
  if (exponent.imag() == 0 && whole == std::floor(whole) && std::abs(whole) <= mostWholePower)
    return wholePower(base, long(whole));
  return std::pow(base, exponent);
}

/// `rows` holds frequency, magnitude and degrees in turn.
Complex tableAt(const Complex* rows, int count, double frequency) {
  constexpr int columns = 3;
  int above = 0;
  while (above < count && rows[above].real() < frequency)
    above += columns;
  const Complex* high = rows + std::min(above, count - columns);
  const Complex* low = rows + std::max(std::min(above, count) - columns, 0);
  const double step = high[0].real() - low[0].real();
  const double part = step > 0 ? (frequency - low[0].real()) / step : 0;
  const auto between = [&](int column) {
    return low[column].real() + part * (high[column].real() - low[column].real());
  };
  return std::polar(std::max(between(1), 0.0), between(2) * pi / 180);
}

Complex binary(Kind kind, const Complex& a, const Complex& b) {
  switch (kind) {
  case Kind::Add:
    return a + b;
  case Kind::Subtract:
    return a - b;
  case Kind::Multiply:
    return a * b;
  case Kind::Divide:
    return a / b;
  default:
    return power(a, b);
  }
}

} // namespace

LaplaceExpression::LaplaceExpression(const char* text) {
  LaplaceReader reader(text ? text : "");
  m_steps = std::move(reader.steps);
  m_fault = reader.fault;
  m_position = reader.position;
  m_unknownName = std::move(reader.unknownName);
  m_hasUnknown = reader.hasUnknown;
  if (m_fault == LaplaceFault::None)
    findRational();
}

void LaplaceExpression::findRational() {
  std::optional<LaplaceRational> rational = rationalOf(m_steps);
  if (!rational) {
    m_fault = LaplaceFault::Value;
    m_steps.clear();
  } else if (rational->isRational) {
    m_numerator = std::move(rational->numerator);
    m_denominator = std::move(rational->denominator);
    if (m_numerator.empty())
      m_numerator = {0};
  }
}

Complex LaplaceExpression::at(Complex s) const {
  if (m_steps.empty())
    return {noNumber, noNumber};
  std::vector<Complex> values;
  const auto take = [&values] {
    const Complex taken = values.back();
    values.pop_back();
    return taken;
  };
  for (const LaplaceStep& step : m_steps) {
    switch (step.kind) {
    case Kind::Number:
      values.push_back(step.number);
      break;
    case Kind::S:
      values.push_back(s);
      break;
    case Kind::Negate:
      values.back() = -values.back();
      break;
    case Kind::Function:
      values.back() = laplaceFunction(step.function).ofComplex(values.back());
      break;
    case Kind::Table: {
      const auto first = values.end() - step.operands;
      const Complex value = tableAt(&*first, step.operands, std::abs(s.imag()) / (2 * pi));
      values.erase(first, values.end());
      values.push_back(value);
      break;
    }
    default: {
      const Complex b = take();
      values.back() = binary(step.kind, values.back(), b);
    }
    }
  }
  return values.back();
}
