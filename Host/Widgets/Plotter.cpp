#include "HostWidgets/Plotter.h"

#include "HostSupportQt/GuiThread.h"
#include "PlotterPrivate.h"

#include <QEvent>

#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double deepestZoom = 1e-9; ///< of the axis, and of the values: what digits can tell
constexpr double widestZoom = 100;   ///< of the axis

} // namespace

Plotter::Private::Private(Plotter* plotter) : q(plotter) {}

void Plotter::Private::follow(Direction* direction, const Axis& axis) {
  QObject::disconnect(direction->following);
  direction->axis = axis.m_data;
  const auto showAxis = [this, direction] {
    redraw(); // the lines may have changed and the range not
    setView(direction, direction->axis->range);
  };
  direction->following = QObject::connect(axis.m_data.get(), &AxisData::changed, q, showAxis);
  showAxis();
}

void Plotter::Private::setView(Direction* direction, PlotRange range) {
  const bool isLogarithmic = direction->axis->isLogarithmic;
  range = isLogarithmic
              ? scaleRange(direction->valueAt(range.low), direction->valueAt(range.high), true)
              : usableRange(range.low, range.high);
  if (isSameRange(range, direction->view, isLogarithmic))
    return;
  direction->view = range;
  redraw();
  if (direction == &x)
    emit q->xRangeChanged(q->xMinimum(), q->xMaximum());
  if (cursor) // other values stand below it now
    setCursor(cursor);
}

void Plotter::Private::setValues(Direction* direction, double minimum, double maximum) {
  if (!std::isnan(minimum) && !std::isnan(maximum))
    setView(direction, scaleRange(minimum, maximum, direction->axis->isLogarithmic));
}

double Plotter::Private::Direction::resolution(double value, int pixels) const {
  const double perPixel = view.width() / pixels;
  return axis->isLogarithmic ? std::abs(value) * std::expm1(perPixel * std::log(10)) : perPixel;
}

void Plotter::Private::zoomTo(Direction* direction, PlotRange range) {
  const PlotRange whole = direction->axis->range;
  const double size = std::max(std::abs(range.low), std::abs(range.high));
  const double least = std::max(whole.width(), size) * deepestZoom;
  const double most = whole.width() * widestZoom;
  const double half = std::clamp(range.width(), least, std::max(least, most)) / 2;
  if (half != range.width() / 2) {
    // At a limit of zoom the view stands still rather than wander off.
    if (range.width() < direction->view.width() ? direction->view.width() <= 2 * half
                                                : direction->view.width() >= 2 * half)
      return;
    range = {range.centre() - half, range.centre() + half};
  }
  setView(direction, range);
}

void Plotter::Private::zoom(Direction* direction, double factor, double fixed) {
  const PlotRange from = direction->view;
  const double low = fixed - (fixed - from.low) * factor;
  zoomTo(direction, {low, low + from.width() * factor});
}

void Plotter::Private::scroll(Direction* direction, double widths) {
  const PlotRange from = direction->view;
  const PlotRange whole = direction->axis->range;
  // Half of the view stays over the axis, so that nobody gets lost beside it.
  const double centre =
      std::clamp(from.centre() + widths * from.width(), std::min(whole.low, from.centre()),
                 std::max(whole.high, from.centre()));
  const double by = centre - from.centre();
  setView(direction, {from.low + by, from.high + by});
}

bool Plotter::Private::isFree(const Direction& direction) const {
  return zoomDirections & (&direction == &x ? Qt::Horizontal : Qt::Vertical);
}

void Plotter::Private::setCurve(int index, PlotCurve points, const QPen& pen) {
  if (points.isEmpty())
    curves.erase(index);
  else
    curves[index] = Curve{std::move(points), pen};
  redraw();
}

void Plotter::Private::setColour(QColor* colour, const QColor& value) {
  *colour = value;
  redraw();
}

Plotter::Plotter(QWidget* parent, const char* objectName)
    : QWidget(sp_GuiParent(parent, "Plotter")), d(std::make_unique<Private>(this)) {
  setObjectName(QLatin1String(objectName));
  Private::installAccessibility();
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  setWhatsThis(tr("Drag over an area to enlarge it, double-click to see everything again. The "
                  "wheel zooms, with Ctrl vertically, and scrolls with Shift. On the keyboard, + "
                  "and - zoom, 0 shows everything, the arrow keys scroll and with Ctrl they move "
                  "the cursor."));
  initializeAxes(Axis(), Axis());
}

Plotter::~Plotter() = default;

void Plotter::setCurveData(int index, const std::vector<double>& points, const QPen& pen) {
  const double* xy = points.data();
  d->setCurve(index, PlotCurve(xy, xy + (points.empty() ? 0 : 1), points.size() / 2, 2), pen);
}

void Plotter::setCurveData(int index, const double* x, const double* y, qint64 count,
                           const QPen& pen) {
  d->setCurve(index, PlotCurve(x, y, x && y ? std::size_t(std::max<qint64>(count, 0)) : 0, 1), pen);
}

void Plotter::setMargins(int left, int top, int right, int bottom) {
  const auto usable = [](int margin) { return std::clamp(margin, 0, QWIDGETSIZE_MAX); };
  d->margins = QMargins(usable(left), usable(top), usable(right), usable(bottom));
  d->redraw();
}

void Plotter::initializeAxes(const Axis& x, const Axis& y) {
  d->follow(&d->x, x);
  d->follow(&d->y, y);
}

void Plotter::shareXRange(Plotter* other) {
  if (!other || other == this)
    return;
  connect(this, &Plotter::xRangeChanged, other, &Plotter::setXRange, Qt::UniqueConnection);
  connect(other, &Plotter::xRangeChanged, this, &Plotter::setXRange, Qt::UniqueConnection);
  other->setXRange(xMinimum(), xMaximum());
}

void Plotter::setTextColour(const QColor& colour) {
  d->setColour(&d->text, colour);
}

void Plotter::setMajorGridColor(const QColor& colour) {
  d->setColour(&d->majorGrid, colour);
}

void Plotter::setMinorGridColour(const QColor& colour) {
  d->setColour(&d->minorGrid, colour);
}

void Plotter::setBackgroundColour(const QColor& colour) {
  d->setColour(&d->background, colour);
}

void Plotter::setPrefixes(bool shown) {
  d->hasPrefixes = shown;
  update();
}

Qt::Orientations Plotter::zoomDirections() const {
  return d->zoomDirections;
}

void Plotter::setZoomDirections(Qt::Orientations directions) {
  d->zoomDirections = directions;
}

double Plotter::xMinimum() const {
  return d->x.values().low;
}

double Plotter::xMaximum() const {
  return d->x.values().high;
}

double Plotter::yMinimum() const {
  return d->y.values().low;
}

double Plotter::yMaximum() const {
  return d->y.values().high;
}

QString Plotter::readOut() const {
  if (!d->cursor)
    return {};
  const QPointF value = d->valueAt(*d->cursor);
  const QRect area = d->area();
  return tr("x = %1, y = %2")
      .arg(plotNumber(value.x(), d->x.resolution(value.x(), area.width()), d->hasPrefixes),
           plotNumber(value.y(), d->y.resolution(value.y(), area.height()), d->hasPrefixes));
}

QSize Plotter::sizeHint() const {
  const int line = fontMetrics().lineSpacing();
  return {28 * line, 14 * line};
}

QSize Plotter::minimumSizeHint() const {
  const int line = fontMetrics().lineSpacing();
  return {6 * line, 2 * line};
}

void Plotter::setXRange(double minimum, double maximum) {
  d->setValues(&d->x, minimum, maximum);
}

void Plotter::setYRange(double minimum, double maximum) {
  d->setValues(&d->y, minimum, maximum);
}

void Plotter::resetZoom() {
  for (Private::Direction* direction : {&d->x, &d->y})
    d->setView(direction, direction->axis->range);
}

void Plotter::resizeEvent(QResizeEvent*) {
  d->setCursor(std::nullopt);
  d->redraw();
}

void Plotter::changeEvent(QEvent* event) {
  switch (event->type()) {
  case QEvent::PaletteChange:
  case QEvent::StyleChange:
  case QEvent::FontChange:
  case QEvent::EnabledChange:
  case QEvent::LocaleChange:
  case QEvent::LayoutDirectionChange:
    d->redraw();
    break;
  default:
    break;
  }
  QWidget::changeEvent(event);
}
