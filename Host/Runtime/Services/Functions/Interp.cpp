#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

namespace {

constexpr int mostPoints = 1'000'000;

} // namespace

CallResult interp(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, 2, 4);
  const Curve curve = arguments.curve(0);
  const int points = arguments.count(1, "points", 0, mostPoints);
  arguments.checkOrder(2);
  if (points > 0)
    return resultOf(resampled(curve, points));

  const char* what = "interval and offset";
  const double interval = arguments.has(3) ? arguments.number(3, what) : 0;
  if (interval <= 0)
    throw FunctionArguments::refusal(3, what, "more than 0 where no number of points is given",
                                     QString::number(interval));
  const double offset = vectors[3].reals.size() > 1 ? vectors[3].reals[1] : 0;
  if (!(offset >= 0 && offset <= largestCurveValue))
    throw FunctionArguments::refusal(3, what, "0 or more", QString::number(offset));
  const Curve made = resampled(curve, interval, offset, mostPoints + 1);
  if (made.size() > static_cast<std::size_t>(mostPoints))
    throw FunctionArguments::refusal(
        3, what, qPrintable(QStringLiteral("enough for %1 points at most").arg(mostPoints)),
        QString::number(interval));
  return resultOf(made);
}
