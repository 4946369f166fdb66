#include "HostSupportQt/Colours.h"
#include "PlotterPrivate.h"

#include <QPaintEvent>
#include <QPainter>

#include <qwt_painter.h>
#include <qwt_plot_grid.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int labelGap = 4;         ///< between the grid and its labels, and between two of them
constexpr int leastMinorGap = 5;    ///< of minor lines; nearer ones would be a grey area
constexpr int smoothPoints = 50000; ///< more are a cloud, which smooth edges only make slow

bool isTooNear(const QRect& label, const QRect& next) {
  return label.adjusted(-labelGap, 0, labelGap, 0).intersects(next);
}

/// Whether any two of the labels are too near where only each so-many is drawn.
bool collide(const QList<QRect>& labels, int stride) {
  for (int i = stride; i < labels.size(); i += stride)
    if (isTooNear(labels[i - stride], labels[i]))
      return true;
  return false;
}

} // namespace

QMargins Plotter::Private::usedMargins() const {
  if (margins)
    return *margins;
  // For long labels, whatever stands there now: the grid stands still while the user zooms.
  const QFontMetrics metrics = q->fontMetrics();
  const int labelWidth = metrics.horizontalAdvance(QStringLiteral("-99.99Meg"));
  const int lineHeight = metrics.height();
  return {y.axis->labels ? labelWidth + 2 * labelGap : labelGap,
          y.axis->labels ? lineHeight / 2 + labelGap : labelGap,
          x.axis->labels ? labelWidth / 2 : labelGap,
          x.axis->labels ? lineHeight + 2 * labelGap : labelGap};
}

QRect Plotter::Private::area() const {
  const QRect inner = q->rect().marginsRemoved(usedMargins());
  return QRect(inner.topLeft(), inner.size().expandedTo(QSize(2, 2)));
}

QwtScaleMap Plotter::Private::map(const Direction& direction, double first, double last) {
  QwtScaleMap map;
  if (direction.axis->isLogarithmic)
    map.setTransformation(new QwtLogTransform);
  map.setScaleInterval(direction.values().low, direction.values().high);
  map.setPaintInterval(first, last);
  return map;
}

QwtScaleMap Plotter::Private::xMap(const QRectF& pixels) const {
  return map(x, pixels.left(), pixels.right() - 1);
}

QwtScaleMap Plotter::Private::yMap(const QRectF& pixels) const {
  return map(y, pixels.bottom() - 1, pixels.top());
}

QPointF Plotter::Private::valueAt(const QPointF& position) const {
  return {xMap(area()).invTransform(position.x()), yMap(area()).invTransform(position.y())};
}

PlotTicks Plotter::Private::ticks(const Direction& direction) const {
  const AxisData& axis = *direction.axis;
  return (axis.isLogarithmic ? decadeTicks : plotTicks)(direction.view, axis.lines,
                                                        axis.minorLines);
}

void Plotter::Private::redraw() {
  layer = QPixmap();
  q->update();
}

QColor Plotter::Private::backgroundColour() const {
  return background.isValid() ? background : q->palette().color(QPalette::Base);
}

/// The colour that was set, or so much of the text's colour on the background.
QColor Plotter::Private::mixed(const QColor& set, double textShare) const {
  return set.isValid()
             ? set
             : sp_MixedColour(backgroundColour(), q->palette().color(QPalette::Text), textShare);
}

QPen Plotter::Private::visiblePen(const QPen& pen) const {
  // Who sets a background chooses the pens to go with it.
  if (background.isValid())
    return pen;
  QPen visible = pen;
  visible.setColor(sp_SeenColour(pen.color(), backgroundColour()));
  return visible;
}

QPixmap Plotter::Private::drawLayer(double scale) const {
  QPixmap picture(QSize(int(std::ceil(q->width() * scale)), int(std::ceil(q->height() * scale))));
  picture.fill(backgroundColour());
  const QRect logical = area();
  // Whole pixels of the screen, whatever its scale.
  const QRectF pixels = QRect(QPoint(qRound(logical.left() * scale), qRound(logical.top() * scale)),
                              QPoint(qRound((logical.right() + 1) * scale) - 1,
                                     qRound((logical.bottom() + 1) * scale) - 1));
  {
    QPainter painter(&picture);
    drawGraph(&painter, pixels, scale);
  }
  picture.setDevicePixelRatio(scale);
  QPainter painter(&picture);
  painter.setFont(q->font());
  drawLabels(&painter);
  return picture;
}

void Plotter::Private::drawGraph(QPainter* painter, const QRectF& pixels, double scale) const {
  const auto division = [&](const Direction& direction, const QwtScaleMap& places) {
    PlotTicks lines = ticks(direction);
    if (lines.minor.size() > 1 &&
        std::abs(places.transform(lines.minor[1]) - places.transform(lines.minor[0])) <
            leastMinorGap * scale)
      lines.minor.clear();
    const PlotRange shown = direction.values();
    return QwtScaleDiv(shown.low, shown.high, lines.minor, {}, lines.major);
  };
  const double lineWidth = std::max(1.0, std::floor(scale));
  painter->setClipRect(pixels);
  QwtPlotGrid grid;
  grid.enableXMin(true);
  grid.enableYMin(true);
  grid.setMajorPen(mixed(majorGrid, 0.3), lineWidth);
  grid.setMinorPen(mixed(minorGrid, 0.1), lineWidth);
  grid.setXDiv(division(x, xMap(pixels)));
  grid.setYDiv(division(y, yMap(pixels)));
  grid.draw(painter, xMap(pixels), yMap(pixels), pixels);
  for (const auto& [index, curve] : curves)
    drawCurve(painter, curve, pixels, scale);
  painter->setClipping(false);
  painter->setRenderHint(QPainter::Antialiasing, false);
  painter->setPen(
      QPen(mixed(majorGrid, 0.5), lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  const double inset = std::floor(lineWidth / 2);
  painter->drawRect(pixels.adjusted(inset, inset, inset - lineWidth, inset - lineWidth));
}

void Plotter::Private::drawCurve(QPainter* painter, const Curve& curve, const QRectF& pixels,
                                 double scale) const {
  QPen pen = visiblePen(curve.pen);
  pen.setWidthF(std::max(1.0, pen.widthF() * scale));
  const double beyond = pen.widthF() + 1;
  const std::vector<QPolygonF> paths = curve.points.paths(
      xMap(pixels), yMap(pixels), pixels.adjusted(-beyond, -beyond, beyond, beyond));
  std::size_t points = 0;
  for (const QPolygonF& path : paths)
    points += std::size_t(path.size());
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, points < smoothPoints);
  // The middle of a pixel is where an odd number of them is sharp.
  if (points < smoothPoints && qRound(pen.widthF()) % 2 == 1)
    painter->translate(0.5, 0.5);
  painter->setPen(pen);
  for (const QPolygonF& path : paths) {
    if (path.size() == 1)
      QwtPainter::drawPoint(painter, path.first());
    else
      QwtPainter::drawPolyline(painter, path);
  }
  painter->restore();
}

void Plotter::Private::drawLabels(QPainter* painter) const {
  painter->setPen(mixed(text, 1));
  const QRect grid = area();
  const QFontMetrics metrics = q->fontMetrics();
  const auto drawAll = [&](const Direction& direction, const auto& placed) {
    const PlotTicks lines = ticks(direction);
    QList<QRect> places;
    QStringList labels;
    for (const double value : lines.major) {
      const QString label = plotNumber(value, lines.step, hasPrefixes);
      QRect rect = placed(value, QSize(metrics.horizontalAdvance(label), metrics.height()));
      // A label at the end of the grid stays inside of the widget.
      rect.moveLeft(std::clamp(rect.left(), 0, std::max(0, q->width() - rect.width())));
      rect.moveTop(std::clamp(rect.top(), 0, std::max(0, q->height() - rect.height())));
      places.append(rect);
      labels.append(label);
    }
    // Decades are left out by turns, so that the others stay powers of one number.
    int stride = 1;
    while (direction.axis->isLogarithmic && collide(places, stride))
      ++stride;
    QRect last;
    for (int i = 0; i < places.size(); i += stride) {
      if (last.isValid() && isTooNear(last, places[i]))
        continue;
      painter->drawText(places[i], Qt::AlignCenter, labels[i]);
      last = places[i];
    }
  };
  if (x.axis->labels) {
    const QwtScaleMap map = xMap(grid);
    drawAll(x, [&](double value, QSize size) {
      return QRect(
          QPoint(qRound(map.transform(value)) - size.width() / 2, grid.bottom() + 1 + labelGap),
          size);
    });
  }
  if (y.axis->labels) {
    const QwtScaleMap map = yMap(grid);
    drawAll(y, [&](double value, QSize size) {
      return QRect(QPoint(grid.left() - labelGap - size.width(),
                          qRound(map.transform(value)) - size.height() / 2),
                   size);
    });
  }
}

void Plotter::Private::drawBand(QPainter* painter) const {
  QColor colour = q->palette().color(QPalette::Highlight);
  painter->setPen(colour);
  colour.setAlpha(50);
  painter->setBrush(colour);
  painter->drawRect(band().adjusted(0, 0, -1, -1));
}

void Plotter::Private::drawCursor(QPainter* painter) const {
  const QRect grid = area();
  const QPoint at = cursor->toPoint();
  painter->setPen(QPen(mixed(text, 0.6), 1, Qt::DashLine));
  painter->drawLine(at.x(), grid.top(), at.x(), grid.bottom());
  painter->drawLine(grid.left(), at.y(), grid.right(), at.y());

  const QString value = q->readOut();
  QRect box = painter->fontMetrics().boundingRect(value);
  box = QRect(0, 0, box.width() + 3 * labelGap, box.height() + labelGap);
  // In the corner that the cursor is not near to.
  const bool isRight = at.x() > grid.center().x();
  box.moveTopLeft({isRight ? grid.left() + labelGap : grid.right() - labelGap - box.width(),
                   grid.top() + labelGap});
  box.moveLeft(std::max(box.left(), 0));
  painter->setPen(mixed(majorGrid, 0.3));
  painter->setBrush(backgroundColour());
  painter->drawRect(box);
  painter->setPen(mixed(text, 1));
  painter->drawText(box, Qt::AlignCenter, value);
}

void Plotter::paintEvent(QPaintEvent*) {
  const double scale = devicePixelRatioF();
  if (d->layer.isNull() || d->layer.devicePixelRatioF() != scale)
    d->layer = d->drawLayer(scale);
  QPainter painter(this);
  painter.drawPixmap(0, 0, d->layer);
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(d->area().adjusted(0, 0, -1, -1));
  }
  if (d->cursor && !d->bandStart)
    d->drawCursor(&painter);
  if (d->bandStart)
    d->drawBand(&painter);
}
