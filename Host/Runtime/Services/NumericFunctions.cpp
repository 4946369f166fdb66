#include "Services/NumericFunctions.h"

#include "Call/HostCall.h"
#include "Services/Numerics/CurveFit.h"

#include <cmath>
#include <limits>

namespace {

constexpr int mostPoints = 1'000'000;

QString kindOf(const ScriptVector& vector) {
  return vector.type == UserReal     ? QStringLiteral("a number")
         : vector.type == UserString ? QStringLiteral("a text")
                                     : QStringLiteral("an opaque value");
}

/// The arguments of one call. The accessors raise `CallError` for what is not as asked for.
class Arguments {
public:
  Arguments(const std::vector<ScriptVector>& vectors, int least, int most) : m_vectors(vectors) {
    const QString wrong = wrongArgumentCount(least, most, vectors.size());
    if (!wrong.isEmpty())
      throw CallError(wrong);
  }

  bool has(std::size_t index) const { return index < m_vectors.size(); }

  Curve curve(std::size_t index) const {
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

  double number(std::size_t index, const char* what) const {
    const ScriptVector& vector = reals(index, what, "a number");
    if (vector.reals.empty())
      throw refusal(index, what, "a number", QStringLiteral("an empty vector"));
    checkNumber(index, what, vector.reals.front());
    return vector.reals.front();
  }

  /// The part in front of the point, from `least` to `most`.
  int count(std::size_t index, const char* what, int least, int most) const {
    const double value = number(index, what);
    if (value < least || value >= most + 1.0)
      throw refusal(index, what, qPrintable(QStringLiteral("from %1 to %2").arg(least).arg(most)),
                    QString::number(value));
    return static_cast<int>(value);
  }

  void checkOrder(std::size_t index) const {
    if (has(index) && number(index, "order") != 1)
      throw refusal(index, "order", "1, linear", QString::number(number(index, "order")));
  }

  void checkText(std::size_t index, const char* what) const {
    if (has(index) && m_vectors[index].type != UserString)
      throw refusal(index, what, "a text", kindOf(m_vectors[index]));
  }

  static CallError refusal(std::size_t index, const char* what, const char* expected,
                           const QString& given) {
    return CallError(QStringLiteral("argument %1 (%2) must be %3, %4 was given.")
                         .arg(index + 1)
                         .arg(QString::fromUtf8(what), QString::fromUtf8(expected), given));
  }

private:
  const ScriptVector& reals(std::size_t index, const char* what, const char* expected) const {
    const ScriptVector& vector = m_vectors.at(index);
    if (vector.type != UserReal)
      throw refusal(index, what, expected, kindOf(vector));
    return vector;
  }

  static void checkNumber(std::size_t index, const char* what, double value) {
    if (!(std::abs(value) <= largestCurveValue))
      throw CallError(QStringLiteral("argument %1 (%2) must hold numbers of at most %3, %4 was "
                                     "given.")
                          .arg(index + 1)
                          .arg(QString::fromUtf8(what))
                          .arg(largestCurveValue)
                          .arg(value));
  }

  const std::vector<ScriptVector>& m_vectors;
};

CallResult resultOf(const Curve& curve) {
  CallResult result;
  result.type = CallResult::Type::Real;
  for (const CurvePoint& point : curve) {
    result.reals.push_back(point.y);
    result.references.push_back(point.x);
  }
  return result;
}

CallResult interp(const std::vector<ScriptVector>& vectors) {
  const Arguments arguments(vectors, 2, 4);
  const Curve curve = arguments.curve(0);
  const int points = arguments.count(1, "points", 0, mostPoints);
  arguments.checkOrder(2);
  if (points > 0)
    return resultOf(resampled(curve, points));

  const char* what = "interval and offset";
  const double interval = arguments.has(3) ? arguments.number(3, what) : 0;
  if (interval <= 0)
    throw Arguments::refusal(3, what, "more than 0 where no number of points is given",
                             QString::number(interval));
  const double offset = vectors[3].reals.size() > 1 ? vectors[3].reals[1] : 0;
  if (!(offset >= 0 && offset <= largestCurveValue))
    throw Arguments::refusal(3, what, "0 or more", QString::number(offset));
  const Curve made = resampled(curve, interval, offset, mostPoints + 1);
  if (made.size() > static_cast<std::size_t>(mostPoints))
    throw Arguments::refusal(
        3, what, qPrintable(QStringLiteral("enough for %1 points at most").arg(mostPoints)),
        QString::number(interval));
  return resultOf(made);
}

CallResult yFromX(const std::vector<ScriptVector>& vectors) {
  const Arguments arguments(vectors, 2, 3);
  arguments.checkOrder(2);
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = valuesAt(arguments.curve(0), arguments.number(1, "x"));
  return result;
}

CallResult integ(const std::vector<ScriptVector>& vectors) {
  return resultOf(runningIntegral(Arguments(vectors, 1, 1).curve(0)));
}

CallResult pwlCurveFit(const std::vector<ScriptVector>& vectors) {
  const Arguments arguments(vectors, 2, 3);
  const Curve curve = arguments.curve(0);
  const int segments = arguments.count(1, "segments", 1, std::numeric_limits<int>::max());
  arguments.checkText(2, "kind");
  return resultOf(fitPolyline(curve, segments));
}

} // namespace

Provider numericFunction(const QString& name) {
  const struct {
    const char* name;
    CallResult (*function)(const std::vector<ScriptVector>&);
  } functions[] = {
      {"interp", interp}, {"YFromX", yFromX}, {"integ", integ}, {"PWLCurveFit", pwlCurveFit}};
  for (const auto& function : functions)
    if (name == QLatin1String(function.name))
      return function.function;
  return {};
}
