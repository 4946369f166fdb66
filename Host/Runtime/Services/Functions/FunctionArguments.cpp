#include "Services/Functions/FunctionArguments.h"

#include "Call/HostCall.h"

#include <cmath>

namespace {

QString kindOf(const ScriptVector& vector) {
  return vector.type == UserReal     ? QStringLiteral("a number")
         : vector.type == UserString ? QStringLiteral("a text")
                                     : QStringLiteral("an opaque value");
}

void checkNumber(std::size_t index, const char* what, double value) {
  if (!(std::abs(value) <= largestCurveValue))
    throw CallError(QStringLiteral("argument %1 (%2) must hold numbers of at most %3, %4 was "
                                   "given.")
                        .arg(index + 1)
                        .arg(QString::fromUtf8(what))
                        .arg(largestCurveValue)
                        .arg(value));
}

} // namespace

FunctionArguments::FunctionArguments(const std::vector<ScriptVector>& vectors, int least, int most)
    : m_vectors(vectors) {
  const QString wrong = wrongArgumentCount(least, most, vectors.size());
  if (!wrong.isEmpty())
    throw CallError(wrong);
}

Curve FunctionArguments::curve(std::size_t index) const {
  const ScriptVector& vector = reals(index, "curve", "a real vector with x values");
  if (vector.references.size() != vector.reals.size())
    throw refusal(index, "curve", "a real vector with x values", QStringLiteral("one without"));
  Curve made;
  made.reserve(vector.reals.size());
  for (std::size_t i = 0; i < vector.reals.size(); ++i) {
    checkNumber(index, "curve", vector.references[i]);
    checkNumber(index, "curve", vector.reals[i]);
    made.push_back({vector.references[i], vector.reals[i]});
  }
  return made;
}

double FunctionArguments::number(std::size_t index, const char* what) const {
  const ScriptVector& vector = reals(index, what, "a number");
  if (vector.reals.empty())
    throw refusal(index, what, "a number", QStringLiteral("an empty vector"));
  checkNumber(index, what, vector.reals.front());
  return vector.reals.front();
}

int FunctionArguments::count(std::size_t index, const char* what, int least, int most) const {
  const double value = number(index, what);
  if (value < least || value >= most + 1.0)
    throw refusal(index, what, qPrintable(QStringLiteral("from %1 to %2").arg(least).arg(most)),
                  QString::number(value));
  return static_cast<int>(value);
}

void FunctionArguments::checkOrder(std::size_t index) const {
  if (has(index) && number(index, "order") != 1)
    throw refusal(index, "order", "1, linear", QString::number(number(index, "order")));
}

void FunctionArguments::checkText(std::size_t index, const char* what) const {
  if (has(index) && m_vectors[index].type != UserString)
    throw refusal(index, what, "a text", kindOf(m_vectors[index]));
}

const QByteArray& FunctionArguments::text(std::size_t index, const char* what) const {
  const ScriptVector& vector = m_vectors.at(index);
  if (vector.type != UserString || vector.strings.size() != 1)
    throw refusal(index, what, "one text",
                  vector.type == UserString
                      ? QStringLiteral("a vector of %1").arg(vector.strings.size())
                      : kindOf(vector));
  return vector.strings.front();
}

CallError FunctionArguments::refusal(std::size_t index, const char* what, const char* expected,
                                     const QString& given) {
  return CallError(QStringLiteral("argument %1 (%2) must be %3, %4 was given.")
                       .arg(index + 1)
                       .arg(QString::fromUtf8(what), QString::fromUtf8(expected), given));
}

const ScriptVector& FunctionArguments::reals(std::size_t index, const char* what,
                                             const char* expected) const {
  const ScriptVector& vector = m_vectors.at(index);
  if (vector.type != UserReal)
    throw refusal(index, what, expected, kindOf(vector));
  return vector;
}

CallResult resultOf(double value) {
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = {value};
  return result;
}

CallResult resultOf(const Curve& curve) {
  CallResult result;
  result.type = CallResult::Type::Real;
  for (const CurvePoint& point : curve) {
    result.reals.push_back(point.y);
    result.references.push_back(point.x);
  }
  return result;
}
