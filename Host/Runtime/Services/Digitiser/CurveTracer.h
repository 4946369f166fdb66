#pragma once

#include <QImage>
#include <QPointF>
#include <QVector>

/// How a curve is told from what lies around it.
struct TraceOptions {
  int tolerance = 50;    ///< per cent of the way from the curve's colour to the paper's: 5 to 95
  int step = 4;          ///< pixels from one point to the next, at least 1
  int gap = 12;          ///< pixels that the curve may be hidden or broken, at least 0
  double thinning = 0.4; ///< pixels that the polyline may leave the traced one; 0 keeps all
};

/// Follows the stroke at `seed` to both sides, as long as it goes on: its middle in every
/// `step`-th column, from left to right, in picture pixels (the middle of the first pixel is
/// (0.5, 0.5)), thinned. Empty where no stroke that stands out from the paper is within a few
/// pixels of the seed.
QVector<QPointF> traceCurve(const QImage& picture, const QPoint& seed, const TraceOptions& options);

/// The paper: the middle of the most frequent colours.
QRgb paperColour(const QImage& picture);

/// Leaves out points of a line that lies in the order of x, as long as each of them stays within
/// `tolerance` of the line that remains. The ends remain.
QVector<QPointF> thinned(const QVector<QPointF>& line, double tolerance);
