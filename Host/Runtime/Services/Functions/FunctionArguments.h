#pragma once

#include "Call/Provider.h"
#include "Services/Numerics/Curves.h"

/// The arguments of one call of a host function. The accessors raise `CallError`, with the
/// argument's number and name, for what is not as asked for.
class FunctionArguments {
public:
  /// From `least` to `most` of them.
  FunctionArguments(const std::vector<ScriptVector>& vectors, int least, int most);
  FunctionArguments(const std::vector<ScriptVector>& vectors, int count)
      : FunctionArguments(vectors, count, count) {}

  bool has(std::size_t index) const { return index < m_vectors.size(); }
  Curve curve(std::size_t index) const;
  double number(std::size_t index, const char* what) const;
  /// The part in front of the point, from `least` to `most`.
  int count(std::size_t index, const char* what, int least, int most) const;
  /// Interpolation is linear, order 1; it need not be said.
  void checkOrder(std::size_t index) const;
  void checkText(std::size_t index, const char* what) const;
  const ScriptVector& vector(std::size_t index) const { return m_vectors.at(index); }
  const QByteArray& text(std::size_t index, const char* what) const; ///< the one of its vector

  static CallError refusal(std::size_t index, const char* what, const char* expected,
                           const QString& given);

private:
  const ScriptVector& reals(std::size_t index, const char* what, const char* expected) const;

  const std::vector<ScriptVector>& m_vectors;
};

CallResult resultOf(double value);
/// A curve as a result: its y, with its x as references.
CallResult resultOf(const Curve& curve);
