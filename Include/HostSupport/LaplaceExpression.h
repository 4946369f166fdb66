#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/LaplaceStep.h"

#include <complex>
#include <cstddef>
#include <string>
#include <vector>

/// An expression in the Laplace variable s, read once and then evaluated.
///
/// Numbers with engineering suffixes, `s`, `pi`, + - * / ^ (or **, to the right first) and
/// brackets; sqrt exp ln log (natural, too) log10 sin cos tan asin acos atan sinh cosh tanh asinh
/// acosh atanh, pow(base, exponent), and table(frequency, magnitude, degrees, …): frequencies in
/// hertz that rise, between them straight lines, beyond them the first and the last. Letters count
/// in any case. What stands in braces is a constant that only the simulator knows. Reading takes
/// time and memory in proportion to the text, whatever stands in it.
class HOSTSUPPORT_EXPORT LaplaceExpression {
public:
  explicit LaplaceExpression(const char* text); ///< null counts as empty

  LaplaceFault fault() const { return m_fault; }
  std::size_t position() const { return m_position; } ///< where the fault was seen, in bytes
  const std::string& unknownName() const { return m_unknownName; }
  /// Whether a constant stands in braces.
  bool hasUnknown() const { return m_hasUnknown; }
  std::size_t length() const { return m_steps.size(); } ///< in steps

  /// Whether it is a quotient of polynomials of at most `laplaceCoefficients` coefficients each.
  bool isRational() const { return !m_denominator.empty(); }
  // Ascending powers of s, from the constant on; a coefficient that braces have a part in is NaN.
  const std::vector<double>& numerator() const { return m_numerator; } ///< one 0 for zero
  const std::vector<double>& denominator() const { return m_denominator; }

  /// Its value; NaN or infinite where it has none, and NaN where it has a fault.
  std::complex<double> at(std::complex<double> s) const;

private:
  void findRational();

  std::vector<LaplaceStep> m_steps;
  LaplaceFault m_fault = LaplaceFault::None;
  std::size_t m_position = 0;
  std::string m_unknownName;
  bool m_hasUnknown = false;
  std::vector<double> m_numerator, m_denominator;
};
