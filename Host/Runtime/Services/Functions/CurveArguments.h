#pragma once

#include "Call/Provider.h"
#include "Services/Numerics/Curves.h"

/// The arguments of one call of a numeric function. The accessors raise `CallError`, with the
/// argument's number and name, for what is not as asked for.
class CurveArguments {
public:
  /// From `least` to `most` of them.
  CurveArguments(const std::vector<ScriptVector>& vectors, int least, int most);

  bool has(std::size_t index) const { return index < m_vectors.size(); }
  Curve curve(std::size_t index) const;
  double number(std::size_t index, const char* what) const;
  /// The part in front of the point, from `least` to `most`.
  int count(std::size_t index, const char* what, int least, int most) const;
  /// Interpolation is linear, order 1; it need not be said.
  void checkOrder(std::size_t index) const;
  void checkText(std::size_t index, const char* what) const;

  static CallError refusal(std::size_t index, const char* what, const char* expected,
                           const QString& given);

private:
  const ScriptVector& reals(std::size_t index, const char* what, const char* expected) const;

  const std::vector<ScriptVector>& m_vectors;
};

/// A curve as a result: its y, with its x as references.
CallResult resultOf(const Curve& curve);
