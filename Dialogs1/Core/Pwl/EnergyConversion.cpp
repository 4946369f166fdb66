#include "Core/Pwl/EnergyConversion.h"

#include "HostSupport/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int highestExponent = 21;
constexpr int lowestExponent = -300; // below it powers of ten lose their digits

QString prefixOf(int exponent) {
  static const char* const prefixes[] = {"T", "G", "Meg", "k", "", "m", "u", "n", "p", "f", "a"};
  constexpr int highest = 12;
  constexpr int lowest = -18;
  if (exponent > highest || exponent < lowest)
    return QStringLiteral("e%1").arg(exponent);
  return QLatin1String(prefixes[(highest - exponent) / 3]);
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

const char* skipSign(const char* text) {
  return *text == '+' || *text == '-' ? text + 1 : text;
}

const char* skipDigits(const char* text) {
  while (isDigit(*text))
    ++text;
  return text;
}

/// Reads each coordinate of `points` by `read`.
template <class Read> Curve curveOf(const PwlPoints& points, Read read) {
  Curve curve;
  for (const PwlPoint& point : points)
    curve.append(read(point.x), read(point.y));
  return curve;
}

template <class Write> PwlPoints textOf(const Curve& curve, Write write) {
  PwlPoints points;
  points.reserve(static_cast<int>(curve.size()));
  for (std::size_t i = 0; i < curve.size(); ++i)
    points.append({write(curve.x[i]), write(curve.y[i])});
  return points;
}

double lastOf(const std::vector<double>& values) {
  return values.empty() ? 0 : values.back();
}

} // namespace

void Curve::append(double newX, double newY) {
  x.push_back(newX);
  y.push_back(newY);
}

namespace {

/// How many characters of a text, without blanks in front, are the number that it begins with.
int leadingRealSize(const QByteArray& text) {
  const char* const start = text.constData();
  const char* const whole = skipSign(start);
  const char* end = skipDigits(whole);
  const bool hasPoint = *end == '.';
  if (hasPoint)
    end = skipDigits(end + 1);
  if (end - whole == (hasPoint ? 1 : 0))
    return 0;
  if (*end == 'e' || *end == 'E') {
    const char* exponent = skipSign(end + 1);
    if (isDigit(*exponent))
      end = skipDigits(exponent);
  }
  return static_cast<int>(end - start);
}

} // namespace

double leadingReal(const QString& text) {
  const QByteArray bytes = text.trimmed().toUtf8();
  return sp_ConvertEngToReal(bytes.left(leadingRealSize(bytes)).constData());
}

QString engText(double value) {
  return QString::fromUtf8(sp_ConvertRealToJSEng(value, 6, false).c_str());
}

QString exactText(double value) {
  return QString::fromUtf8(YString(value).c_str());
}

Curve curveOfEngText(const PwlPoints& points) {
  return curveOf(
      points, [](const QString& text) { return sp_ConvertEngToReal(text.toUtf8().constData()); });
}

PwlPoints engTextOfCurve(const Curve& curve) {
  return textOf(curve, engText);
}

Curve curveOfExactText(const PwlPoints& points) {
  return curveOf(points, [](const QString& text) { return text.toDouble(); });
}

PwlPoints exactTextOfCurve(const Curve& curve) {
  return textOf(curve, exactText);
}

PwlPoints withoutSuffixes(PwlPoints points) {
  return engTextOfCurve(curveOf(points, leadingReal));
}

SuffixLoss lossWithoutSuffixes(const PwlPoints& points) {
  SuffixLoss loss;
  for (const PwlPoint& point : points)
    for (const QString& text : {point.x, point.y}) {
      const QByteArray bytes = text.trimmed().toUtf8();
      const int size = leadingRealSize(bytes);
      ++(size == 0 ? loss.zeros : size < bytes.size() ? loss.cut : loss.whole);
    }
  return loss;
}

bool isStepWise(const PwlPoints& points) {
  return std::adjacent_find(points.begin(), points.end(), [](const auto& a, const auto& b) {
           return a.x == b.x;
         }) != points.end();
}

Curve differentiate(const Curve& points) {
  Curve steps;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const double slope = (points.y[i + 1] - points.y[i]) / (points.x[i + 1] - points.x[i]);
    steps.append(points.x[i], slope);
    steps.append(points.x[i + 1], slope);
  }
  return steps;
}

Curve upTo(double limit, const Curve& curve) {
  Curve kept;
  for (std::size_t i = 0; i < curve.size() && curve.x[i] <= limit; ++i)
    kept.append(curve.x[i], curve.y[i]);
  return kept;
}

EngUnit engUnitOf(double value) {
  if (!(value > 0) || std::isinf(value))
    return {};
  for (int exponent = highestExponent; exponent >= lowestExponent; exponent -= 3) {
    const double scale = std::pow(10.0, exponent);
    if (value / scale >= 1)
      return {scale, prefixOf(exponent)};
  }
  return {};
}

Curve scaled(const Curve& curve, const EngUnit& x, const EngUnit& y) {
  Curve other = curve;
  for (double& value : other.x)
    value /= x.scale;
  for (double& value : other.y)
    value /= y.scale;
  return other;
}

Range rangeOf(const std::vector<double>& values, const std::vector<double>& others) {
  Range range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (const std::vector<double>* each : {&values, &others})
    for (double value : *each)
      if (std::isfinite(value))
        range = {std::min(range.minimum, value), std::max(range.maximum, value)};
  return range.minimum <= range.maximum ? range : Range();
}

EnergyPlot energyPlot(const Curve& input, const Curve& integral, const Curve& output) {
  EnergyPlot plot;
  plot.inputUnit = engUnitOf(input.y.empty() ? 0 : input.y.front());
  plot.outputUnit = engUnitOf(lastOf(output.y));
  plot.xUnit = engUnitOf(lastOf(output.x));
  plot.input = scaled(input, plot.xUnit, plot.inputUnit);
  plot.integral = scaled(integral, plot.xUnit, plot.outputUnit);
  plot.output = scaled(output, plot.xUnit, plot.outputUnit);
  plot.derivative = scaled(differentiate(output), plot.xUnit, plot.inputUnit);
  return plot;
}
