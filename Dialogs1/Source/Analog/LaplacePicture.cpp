#include "Analog/LaplacePicture.h"

#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/PicturePane.h"

#include <QPen>

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned withLabels = 2;
constexpr unsigned mostLines = 5;
constexpr double flat = 2;                      ///< decibels or degrees; less stands in the middle
constexpr int longestName = 40;                 ///< that the sentence quotes
constexpr std::size_t longestText = 20000;      ///< in bytes
constexpr std::size_t longestExpression = 1000; ///< in steps; of more, no picture within a frame

struct Range {
  double low, high;
};

Range rangeOf(const std::vector<double>& values) {
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  return {*low, *high};
}

/// Whole steps around the values, a few of them. Of a long fall only the upper part: the lower one
/// is to be had by scrolling.
void fit(Axis* axis, Range range, std::initializer_list<double> steps, double mostSpan) {
  range.low = std::max(range.low, range.high - mostSpan);
  if (range.high - range.low < flat)
    range = {range.low - flat / 2, range.high + flat / 2};
  const double room = (range.high - range.low) / 50; // or the frame hides what runs along it
  range = {range.low - room, range.high + room};
  const auto count = [&range](double step) {
    return std::max(std::ceil(range.high / step - 1e-6) - std::floor(range.low / step + 1e-6), 1.0);
  };
  const double* step = std::find_if(steps.begin(), steps.end() - 1,
                                    [&count](double each) { return count(each) <= mostLines + 1; });
  const double low = std::floor(range.low / *step + 1e-6) * *step;
  const double high = low + count(*step) * *step;
  if (low == axis->minimum() && high == axis->maximum())
    return; // what the user has enlarged stays
  axis->setAxisParams(low, high, unsigned(count(*step)) - 1, 0, 0, withLabels);
}

} // namespace

LaplacePicture::LaplacePicture(PicturePane* pane)
    : m_magnitude(pane->addPlot(tr("Magnitude/dB"), tr("Frequency/Hz"))),
      m_phase(pane->addPlot(tr("Phase/degrees"), tr("Frequency/Hz"))) {
  m_frequency.setLogarithmic(true);
  m_frequency.setAxisParams(std::pow(10, m_decades.first), std::pow(10, m_decades.last), mostLines,
                            0, 0, withLabels);
  m_magnitude->initializeAxes(m_frequency, m_decibels);
  m_phase->initializeAxes(m_frequency, m_degrees);
  m_magnitude->shareXRange(m_phase);
}

void LaplacePicture::setTabOrderBehind(QWidget* widget) {
  QWidget::setTabOrder(widget, m_magnitude);
  QWidget::setTabOrder(m_magnitude, m_phase);
}

QString LaplacePicture::draw(const char* text, std::optional<double> scale,
                             std::optional<double> delay) {
  if (qstrlen(text) > longestText)
    return tooLong();
  const LaplaceExpression expression(text);
  if (const QString reason = fault(text, expression); !reason.isEmpty())
    return reason;
  if (!scale)
    return tr("The response is not known, for the frequency scale factor is not known here.");
  if (!(*scale > 0) || !std::isfinite(*scale))
    return tr("The response is not known, for the frequency scale factor is not above zero.");
  if (!delay)
    return tr("The response is not known, for the delay is not known here.");
  const TransferFunction function{expression, *scale, *delay};
  const Decades decades = decadesOfInterest(function);
  const FrequencyResponse response = frequencyResponse(function, decades);
  if (response.frequency.size() < 2)
    return tr("The response has no magnitude in decibels at any frequency.");
  showRange(response, decades);
  const auto show = [&response](Plotter* plot, const std::vector<double>& values) {
    plot->setCurveData(0, response.frequency.data(), values.data(),
                       qint64(response.frequency.size()),
                       QPen(Qt::red, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  };
  show(m_magnitude, response.decibels);
  show(m_phase, response.degrees);
  return {};
}

QString LaplacePicture::tooLong() {
  return tr("The expression is too long for a picture.");
}

QString LaplacePicture::fault(const char* text, const LaplaceExpression& expression) const {
  switch (expression.fault()) {
  case LaplaceFault::None:
    break;
  case LaplaceFault::Parentheses:
    return tr("The parentheses of the expression do not match.");
  case LaplaceFault::UnknownName:
    return tr("The expression has a name that is not known: %1.")
        .arg(QString::fromStdString(expression.unknownName()).left(longestName));
  case LaplaceFault::Value:
    return tr("A value in the expression cannot be, or is too large for a number.");
  case LaplaceFault::Syntax:
    if (expression.position() >= qstrlen(text))
      return tr("The expression is not complete.");
    return tr("The expression has a syntax error at character %1.")
        .arg(charactersBefore(text, expression.position()) + 1);
  }
  if (expression.hasUnknown())
    return tr("The response is not known, for the expression has a parameter in braces.");
  if (expression.length() > longestExpression)
    return tooLong();
  return {};
}

void LaplacePicture::showRange(const FrequencyResponse& response, const Decades& decades) {
  if (decades.first != m_decades.first || decades.last != m_decades.last)
    m_frequency.setAxisParams(std::pow(10, decades.first), std::pow(10, decades.last), mostLines, 0,
                              0, withLabels);
  m_decades = decades;
  fit(&m_decibels, rangeOf(response.decibels), {5, 10, 20, 50, 100, 200}, 800);
  fit(&m_degrees, rangeOf(response.degrees), {15, 45, 90, 180, 360}, 720);
}

int charactersBefore(const char* text, std::size_t position) {
  return QString::fromUtf8(text, int(position))
      .replace(QLatin1String("\r\n"), QLatin1String("\n"))
      .size();
}
