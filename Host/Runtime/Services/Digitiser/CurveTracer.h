#pragma once

#include <QImage>
#include <QPointF>
#include <QVector>

#include <optional>

/// How a curve is told from what lies around it, and how many of its points are wanted.
struct TraceOptions {
  int tolerance = 50;    ///< per cent of the way from the curve's colour to the paper's: 5 to 95
  int step = 4;          ///< pixels from one point to the next, at least 1
  int gap = 12;          ///< pixels that the curve may be hidden or broken, at least 0
  double thinning = 0.4; ///< pixels that the points left may leave the curve; 0 keeps all
};

/// A stroke that was followed.
struct Trace {
  /// Its middle in every column, from left to right, in picture pixels (the middle of the first
  /// pixel is (0.5, 0.5)).
  QVector<QPointF> line;
  /// Where it stopped on either side because another stroke of its colour goes on as likely.
  std::optional<QPointF> unclearLeft, unclearRight;
  bool isEmpty() const { return line.isEmpty(); }
};

/// Follows the stroke at `seed` to both sides, as long as it goes on. Where strokes meet at the
/// seed, one that is no line of a grid is taken. Empty where no stroke that stands out from the
/// paper is within a few pixels of the seed.
Trace traceCurve(const QImage& picture, const QPoint& seed, const TraceOptions& options);

/// The paper: the middle of the most frequent colours.
QRgb paperColour(const QImage& picture);
