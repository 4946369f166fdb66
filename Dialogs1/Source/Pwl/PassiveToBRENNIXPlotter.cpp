#include "Pwl/PassiveToBRENNIXPlotter.h"

#include "HostSupportQt/Colours.h"
#include "HostSupportQt/HostSupportQt.h"

namespace {

constexpr int firstWidth = 700; // pixels, until the user makes it another
constexpr int firstHeight = 600;
constexpr Qt::GlobalColor givenColour = Qt::blue;
constexpr Qt::GlobalColor madeColour = Qt::red; // by the segments

QString framed(const char* alignment, const QString& text) {
  return QStringLiteral("<div align = \"%1\">%2</div>").arg(QLatin1String(alignment), text);
}

QString unit(const QString& text) {
  return QLatin1Char('(') + text + QLatin1Char(')');
}

void showCurve(Plotter* plotter, int index, const Curve& curve, Qt::GlobalColor colour) {
  plotter->setCurveData(index, curve.x.data(), curve.y.data(), static_cast<qint64>(curve.size()),
                        QPen(colour, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void setRange(Axis* axis, double minimum, double maximum) {
  axis->setAxisParams(minimum, maximum, 3, 0, 0, 2);
}

} // namespace

PassiveToBRENNIXPlotter::PassiveToBRENNIXPlotter(QWidget* parent, bool isInductor,
                                                 const EnergyPlot& plot)
    : WaitingDialog(parent) {
  form.setupUi(this);
  resize(firstWidth, firstHeight);
  connect(form.closeButton, &QPushButton::clicked, this, &QDialog::accept);
  showLegend();
  showLabels(isInductor, plot);
  showCurves(plot);
  showAxes(plot);
}

void PassiveToBRENNIXPlotter::showEvent(QShowEvent* event) {
  WaitingDialog::showEvent(event);
  sp_RestoreWidgetDims(this, toYs(objectName()));
}

void PassiveToBRENNIXPlotter::hideEvent(QHideEvent* event) {
  sp_SaveWidgetDims(this, toYs(objectName()));
  WaitingDialog::hideEvent(event);
}

void PassiveToBRENNIXPlotter::changeEvent(QEvent* event) {
  WaitingDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    showLegend();
}

void PassiveToBRENNIXPlotter::showLegend() {
  const auto mark = [this](const QColor& colour) {
    const QColor drawn = sp_SeenColour(colour, form.topPlotter->palette().color(QPalette::Base));
    return QStringLiteral("<span style=\"color:%1\">&#x25ac;</span>").arg(drawn.name());
  };
  form.legend->setText(
      tr("%1 as given &nbsp; %2 as segments make it").arg(mark(givenColour), mark(madeColour)));
}

void PassiveToBRENNIXPlotter::showLabels(bool isInductor, const EnergyPlot& plot) {
  const QString topName = isInductor ? tr("Inductance") : tr("Capacitance");
  const QString bottomName = isInductor ? tr("Flux Linkages") : tr("Charge");
  const QString xName = isInductor ? tr("Current") : tr("Voltage");
  const QString& prefix = plot.outputUnit.prefix;
  form.topYLabel->setText(framed("center", topName));
  form.bottomYLabel->setText(framed("center", bottomName));
  form.XLabel->setText(framed("right", xName));
  form.topYUnit->setText(
      framed("center", unit(plot.inputUnit.prefix + (isInductor ? tr("H") : tr("F")))));
  form.bottomYUnit->setText(
      framed("center", unit(isInductor ? tr("%1V-s or %1Wb-t").arg(prefix) : prefix + tr("C"))));
  form.XUnit->setText(framed("left", unit(plot.xUnit.prefix + (isInductor ? tr("A") : tr("V")))));
  form.topPlotter->setAccessibleName(topName);
  form.bottomPlotter->setAccessibleName(bottomName);
}

void PassiveToBRENNIXPlotter::showCurves(const EnergyPlot& plot) {
  showCurve(form.bottomPlotter, 1, plot.output, madeColour);
  if (plot.integral.size() > 1)
    showCurve(form.bottomPlotter, 0, plot.integral, givenColour);
  showCurve(form.topPlotter, 0, plot.derivative, madeColour);
  showCurve(form.topPlotter, 1, plot.input, givenColour);
}

void PassiveToBRENNIXPlotter::showAxes(const EnergyPlot& plot) {
  const Range x = rangeOf(plot.output.x, plot.integral.x);
  const Range top = rangeOf(plot.input.y, plot.derivative.y);
  const Range bottom = rangeOf(plot.output.y, plot.integral.y);
  setRange(&topX, x.minimum, x.maximum);
  setRange(&bottomX, x.minimum, x.maximum);
  setRange(&topY, 0.9 * top.minimum, 1.1 * top.maximum);
  setRange(&bottomY, bottom.minimum, bottom.maximum);
  form.topPlotter->initializeAxes(topX, topY);
  form.bottomPlotter->initializeAxes(bottomX, bottomY);
  for (Plotter* plotter : {form.topPlotter, form.bottomPlotter}) {
    plotter->setMargins(100, 20, 15, 50);
    plotter->setPrefixes(false); // which the units have
  }
  for (Axis* axis : {&topX, &topY, &bottomX, &bottomY})
    axis->adjustAxis();
}
