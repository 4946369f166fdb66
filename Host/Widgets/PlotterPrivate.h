#pragma once

#include "AxisData.h"
#include "HostWidgets/Plotter.h"
#include "PlotCurve.h"

#include <QMetaObject>
#include <QPen>
#include <QPixmap>

#include <cmath>
#include <map>
#include <optional>

class QwtScaleMap;

class Plotter::Private {
public:
  struct Direction {
    std::shared_ptr<AxisData> axis;
    QMetaObject::Connection following;
    PlotRange view; ///< as the scale has it: of a logarithmic axis in decades

    double valueAt(double place) const { return ::valueAt(place, axis->isLogarithmic); }
    double placeOf(double value) const { return axis->isLogarithmic ? std::log10(value) : value; }
    PlotRange values() const { return {valueAt(view.low), valueAt(view.high)}; }
    double resolution(double value, int pixels) const; ///< of so many pixels, at this value
  };
  struct Curve {
    PlotCurve points;
    QPen pen;
  };

  explicit Private(Plotter* plotter);

  // Ranges.
  void follow(Direction* direction, const Axis& axis);
  void setView(Direction* direction, PlotRange range);
  void setValues(Direction* direction, double minimum, double maximum); ///< NaN is ignored
  void zoomTo(Direction* direction, PlotRange range);
  void zoom(Direction* direction, double factor, double fixed);
  void scroll(Direction* direction, double widths);
  bool isFree(const Direction& direction) const; ///< for the user to zoom

  // Geometry; everything in device-independent pixels.
  QMargins usedMargins() const;
  QRect area() const; ///< of the grid; never empty
  static QwtScaleMap map(const Direction& direction, double first, double last);
  QwtScaleMap xMap(const QRectF& pixels) const;
  QwtScaleMap yMap(const QRectF& pixels) const;
  QPointF valueAt(const QPointF& position) const;
  PlotTicks ticks(const Direction& direction) const;

  // Painting.
  void redraw(); ///< what stands still has changed
  void setCurve(int index, PlotCurve points, const QPen& pen);
  void setColour(QColor* colour, const QColor& value);
  QColor backgroundColour() const;
  QColor mixed(const QColor& set, double text) const;
  QPen visiblePen(const QPen& pen) const;
  QPixmap drawLayer(double scale) const;
  void drawGraph(QPainter* painter, const QRectF& pixels, double scale) const;
  void drawCurve(QPainter* painter, const Curve& curve, const QRectF& pixels, double scale) const;
  void drawLabels(QPainter* painter) const;
  void drawBand(QPainter* painter) const;
  void drawCursor(QPainter* painter) const;

  // What assistive technology sees of it: a chart whose value is the read-out.
  static void installAccessibility(); ///< once in a process
  void announceReadOut() const;       ///< if somebody listens

  // Mouse and keyboard.
  QRect band() const; ///< that a drag zooms to
  void zoomToBand();
  void setCursor(const std::optional<QPointF>& position);
  bool zoomKey(int key);
  bool arrowKey(int key, bool movesCursor);

  Plotter* q;
  Direction x, y;
  std::map<int, Curve> curves;
  std::optional<QMargins> margins;
  QColor text, majorGrid, minorGrid, background;
  Qt::Orientations zoomDirections = Qt::Horizontal | Qt::Vertical;
  bool hasPrefixes = true;

  QPixmap layer; ///< all but cursor and band; null when it has to be drawn
  std::optional<QPointF> cursor;
  std::optional<QPoint> bandStart;
  QPoint bandEnd;
};
