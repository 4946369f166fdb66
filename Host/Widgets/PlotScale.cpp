#include "PlotScale.h"

#include "HostSupport/Numbers.h"

#include <qwt_scale_engine.h>

#include <algorithm>
#include <cmath>

namespace {

// Beyond these the differences and quotients of drawing leave the range of a double.
constexpr double largest = 1e300;
constexpr double narrowest = 1e-300;
constexpr double relativeWidth = 1e-12; ///< ends nearer to each other are one value, rounded
constexpr double roundingError = 1e-6;  ///< of a step
constexpr double farthestDecade = 150;  ///< squares of its values are still numbers
constexpr double decadesForZero = 3;    ///< below the other end, in the place of an end at zero
constexpr unsigned mostLines = 500;     ///< more could not be told apart
constexpr unsigned mostMinorLines = 50;
constexpr int suitableMinorSteps = 5;

double decadeOf(double value) {
  return std::floor(std::log10(value) + 1e-12);
}

bool isWhole(double value) {
  return std::abs(value - std::round(value)) < roundingError;
}

/// Whether `step` needs no more than two digits, and the range starts on one of its multiples.
bool isRoundDivision(const PlotRange& range, double step) {
  return isWhole(step / std::pow(10, decadeOf(step) - 1)) && isWhole(range.low / step);
}

/// How many steps there are between the multiples of `step` that enclose the range.
double stepsOver(const PlotRange& range, double step) {
  return QwtScaleArithmetic::ceilEps(range.high, step) / step -
         QwtScaleArithmetic::floorEps(range.low, step) / step;
}

void scale(QList<double>* values, double unit, double step) {
  for (double& value : *values)
    value = std::abs(value) < step * roundingError ? 0 : value * unit;
}

} // namespace

PlotRange usableRange(double a, double b) {
  if (!std::isfinite(a))
    a = b;
  if (!std::isfinite(b))
    b = a;
  if (!std::isfinite(a))
    return {};
  a = std::clamp(a, -largest, largest);
  b = std::clamp(b, -largest, largest);
  const PlotRange range{std::min(a, b), std::max(a, b)};
  const double size = std::max(std::abs(a), std::abs(b));
  if (range.width() >= narrowest && range.width() >= size * relativeWidth)
    return range;
  const double centre = range.centre();
  const double half = size < 4 * narrowest ? 1 : std::abs(centre) / 2;
  return {std::max(centre - half, -largest), std::min(centre + half, largest)};
}

PlotRange scaleRange(double a, double b, bool isLogarithmic) {
  if (!isLogarithmic)
    return usableRange(a, b);
  const double high = std::max(a, b);
  const double low = std::min(a, b);
  const auto decadesOf = [](double value) {
    return std::clamp(std::log10(value), -farthestDecade, farthestDecade);
  };
  if (!(high > 0)) // NaN, too
    return {};
  return usableRange(low > 0 ? decadesOf(low) : decadesOf(high) - decadesForZero, decadesOf(high));
}

double valueAt(double place, bool isLogarithmic) {
  return isLogarithmic ? std::pow(10, place) : place;
}

bool isSameRange(const PlotRange& a, const PlotRange& b, bool isLogarithmic) {
  constexpr double rounding = 1e-12;
  return a == b || (isLogarithmic && std::abs(a.low - b.low) < rounding &&
                    std::abs(a.high - b.high) < rounding);
}

PlotTicks decadeTicks(const PlotRange& decades, unsigned lines, unsigned minorLines) {
  constexpr double linearBelow = 0.5;
  constexpr double onlyDecadesFrom = 2;
  if (lines == 0 || decades.width() < linearBelow)
    return plotTicks({valueAt(decades.low, true), valueAt(decades.high, true)}, lines, minorLines);
  const int stride =
      std::max(1, int(std::ceil(decades.width() / (std::min(lines, mostLines) + 1))));
  const bool isNarrow = decades.width() < onlyDecadesFrom;
  PlotTicks ticks;
  for (int decade = int(std::floor(decades.low)); decade <= decades.high; ++decade)
    for (int digit = 1; digit < 10; ++digit) {
      const double place = decade + std::log10(digit);
      const bool isMajor =
          digit == 1 ? decade % stride == 0 : isNarrow && (digit == 2 || digit == 5);
      if (place < decades.low - roundingError || place > decades.high + roundingError ||
          (digit > 1 && stride > 1))
        continue;
      (isMajor ? ticks.major : ticks.minor).append(digit * std::pow(10, decade));
    }
  return ticks;
}

PlotTicks plotTicks(const PlotRange& range, unsigned lines, unsigned minorLines) {
  PlotTicks ticks;
  ticks.step = range.width();
  if (lines == 0)
    return ticks;
  lines = std::min(lines, mostLines);
  // The engine compares against fixed errors: it is given numbers near 1.
  const double unit = std::pow(10, decadeOf(range.width()));
  const PlotRange inUnits{range.low / unit, range.high / unit};
  const double exact = inUnits.width() / (lines + 1);
  const bool isExact = isRoundDivision(inUnits, exact);
  // It takes the next larger round step, which may be two and a half times as large.
  const int most = isExact ? lines + 1 : (lines + 1) * 3 / 2;
  const int minorSteps =
      minorLines == 0 ? suitableMinorSteps : int(std::min(minorLines, mostMinorLines)) + 1;
  const QwtScaleDiv division = QwtLinearScaleEngine().divideScale(
      inUnits.low, inUnits.high, most, minorSteps, isExact ? exact : 0.0);
  ticks.major = division.ticks(QwtScaleDiv::MajorTick);
  ticks.minor = division.ticks(QwtScaleDiv::MediumTick) + division.ticks(QwtScaleDiv::MinorTick);
  std::sort(ticks.minor.begin(), ticks.minor.end());
  const double step = ticks.major.size() > 1 ? ticks.major[1] - ticks.major[0] : inUnits.width();
  scale(&ticks.major, unit, step);
  scale(&ticks.minor, unit, step);
  ticks.step = step * unit;
  return ticks;
}

PlotRange roundedRange(const PlotRange& range, unsigned* lines) {
  const double wanted = std::min(*lines, mostLines) + 1.0;
  const double unit = std::pow(10, decadeOf(range.width() / wanted));
  const PlotRange inUnits{range.low / unit, range.high / unit};
  double best = 0;
  for (const double step : {1.0, 2.0, 2.5, 5.0, 10.0, 20.0, 50.0}) {
    const double distance = std::abs(stepsOver(inUnits, step) - wanted);
    if (best == 0 || distance < std::abs(stepsOver(inUnits, best) - wanted))
      best = step;
  }
  *lines = unsigned(std::lround(stepsOver(inUnits, best))) - 1;
  return usableRange(QwtScaleArithmetic::floorEps(inUnits.low, best) * unit,
                     QwtScaleArithmetic::ceilEps(inUnits.high, best) * unit);
}

QString plotNumber(double value, double resolution, bool hasPrefixes) {
  constexpr int mostDigits = 15;
  if (resolution == 0)
    resolution = std::abs(value);
  if (std::abs(value) <= resolution * roundingError)
    return QStringLiteral("0");
  const double digits = decadeOf(std::abs(value)) - decadeOf(resolution) + 2;
  const int shown = int(std::clamp(digits, 1.0, double(mostDigits)));
  return hasPrefixes ? QString::fromUtf8(sp_ConvertRealToJSEng(value, shown))
                     : QString::number(value, 'g', std::max(shown, 6)); // 100, not 1e+02
}
