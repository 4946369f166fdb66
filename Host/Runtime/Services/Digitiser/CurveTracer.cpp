#include "Services/Digitiser/CurveTracer.h"

#include "Services/Digitiser/CurveWalk.h"

#include <QLineF>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

constexpr int paperSamples = 1 << 20;  // pixels looked at for the paper's colour
constexpr int ringRadius = 8;          // pixels, on which strokes that meet at the seed part
constexpr std::size_t mostStrokes = 8; // that meet at a place; more are a pattern
constexpr double ringContrast = 60;    // of 441, that a stroke there has
constexpr double seedPlay = 1.2;       // pixels by which a click is usually off
constexpr int leastColumns = 8;        // of a curve, as opposed to a line down the picture
constexpr double gridDegrees = 4;      // that a line of a grid may be turned
constexpr double gridPlay = 0.8;       // pixels that it may be bent

constexpr double gridWeight = 0.1; // against that of a curve

/// A stroke that was followed, and how dark it is.
struct Found {
  Trace trace;
  double ink = 0;
};

std::optional<Found> followed(const QImage& picture, QRgb paper, const QPoint& seed,
                              const TraceOptions& options) {
  Stroke stroke(picture, paper, options.tolerance);
  const std::optional<QPoint> start = stroke.takeColour(seed);
  if (!start || !stroke.has(start->x(), start->y()))
    return std::nullopt;
  const CurveWalk toRight(stroke, 1, options.gap);
  const CurveWalk toLeft(stroke, -1, options.gap);
  // What lies left of the seed tells the direction to its right, and the other way round.
  Arm path = toLeft.armFrom(stroke.runAt(start->x(), start->y()));
  const std::size_t known = path.size();
  std::reverse(path.begin(), path.end());
  const bool rightIsClear = toRight.go(&path);
  const auto rightTip = toRight.tip(&path, known);
  std::reverse(path.begin(), path.end());
  const bool leftIsClear = toLeft.go(&path);
  const auto leftTip = toLeft.tip(&path, 1);

  smooth(&path);
  Found found;
  QVector<QPointF>& line = found.trace.line;
  if (leftTip)
    line.append(*leftTip);
  for (auto run = path.rbegin(); run != path.rend(); ++run)
    line.append({run->at(), run->middle});
  if (rightTip)
    line.append(*rightTip);
  if (!leftIsClear)
    found.trace.unclearLeft = line.first();
  if (!rightIsClear)
    found.trace.unclearRight = line.last();
  found.ink = stroke.contrast() * median(path, path.size(), inkOf);
  return found;
}

// ---- strokes that meet at the seed --------------------------------------------------------------

/// The places around the seed that strokes pass.
std::vector<QPoint> strokesAround(const QImage& picture, QRgb paper, const QPoint& seed) {
  const Stroke any(picture, paper, 50);
  std::vector<QPoint> ring;
  for (int degree = 0; degree < 360; degree += 5) {
    const double angle = qDegreesToRadians(double(degree));
    const QPoint at =
        seed + QPoint(qRound(ringRadius * std::cos(angle)), qRound(ringRadius * std::sin(angle)));
    if (ring.empty() || ring.back() != at)
      ring.push_back(at);
  }
  const auto isDrawn = [&](std::size_t i) {
    return any.isDrawn(ring[i % ring.size()].x(), ring[i % ring.size()].y(), ringContrast);
  };
  std::size_t start = 0;
  while (start < ring.size() && isDrawn(start))
    ++start;
  std::vector<QPoint> found;
  for (std::size_t i = start; i < start + ring.size();) {
    std::size_t end = i;
    while (end < start + ring.size() && isDrawn(end))
      ++end;
    if (end > i)
      found.push_back(ring[(i + end - 1) / 2 % ring.size()]);
    i = end + 1;
  }
  return found;
}

double distanceTo(const QVector<QPointF>& line, const QPointF& point) {
  double least = QLineF(line.first(), point).length();
  for (int i = 1; i < line.size(); ++i) {
    const QPointF way = line[i] - line[i - 1];
    const double part = qBound(0.0,
                               QPointF::dotProduct(point - line[i - 1], way) /
                                   std::max(1e-9, QPointF::dotProduct(way, way)),
                               1.0);
    least = std::min(least, QLineF(line[i - 1] + part * way, point).length());
  }
  return least;
}

/// Nearly all of it lies on a straight line along the picture.
bool isGridLine(const QVector<QPointF>& line) {
  const int play = line.size() / 20; // where other lines meet it, a few points are off
  const QLineF chord(line[play], line[line.size() - 1 - play]);
  if (std::abs(chord.dy()) > std::tan(qDegreesToRadians(gridDegrees)) * chord.dx())
    return false;
  const auto off = std::count_if(line.begin(), line.end(), [&](const QPointF& point) {
    return distanceTo({chord.p1(), chord.p2()}, point) > gridPlay;
  });
  return off <= 2 * play;
}

/// How likely a stroke is meant by a click: the nearer, longer and darker the more.
double likelihood(const Found& one, const QPointF& click) {
  const double weight = isGridLine(one.trace.line) ? gridWeight : 1;
  const double nearness = std::exp(-distanceTo(one.trace.line, click) / seedPlay);
  return weight * nearness * one.ink * one.trace.line.size();
}

/// Of the strokes around the seed the one that is meant by a click there.
std::optional<Found> meant(const std::vector<Found>& strokes, const QPoint& seed) {
  const QPointF at(seed.x() + 0.5, seed.y() + 0.5);
  const auto best =
      std::max_element(strokes.begin(), strokes.end(), [&](const Found& a, const Found& b) {
        return likelihood(a, at) < likelihood(b, at);
      });
  return best == strokes.end() ? std::nullopt : std::make_optional(*best);
}

} // namespace

QRgb paperColour(const QImage& picture) {
  struct Bin {
    qint64 count = 0, r = 0, g = 0, b = 0;
  };
  std::vector<Bin> bins(4096);
  const double pixels = double(picture.width()) * picture.height();
  const int stride = std::max(1, qCeil(std::sqrt(pixels / paperSamples)));
  quint32 chance = 1; // a place in each square by chance: grids would agree with even steps
  for (int top = 0; top < picture.height(); top += stride)
    for (int left = 0; left < picture.width(); left += stride) {
      chance = chance * 1664525 + 1013904223;
      const int place = static_cast<int>((chance >> 8) % static_cast<quint32>(stride * stride));
      const int x = std::min(left + place % stride, picture.width() - 1);
      const int y = std::min(top + place / stride, picture.height() - 1);
      const QRgb rgb = picture.pixel(x, y);
      Bin& bin = bins[static_cast<std::size_t>((qRed(rgb) >> 4) << 8 | (qGreen(rgb) >> 4) << 4 |
                                               qBlue(rgb) >> 4)];
      ++bin.count;
      bin.r += qRed(rgb);
      bin.g += qGreen(rgb);
      bin.b += qBlue(rgb);
    }
  const Bin& most = *std::max_element(bins.begin(), bins.end(),
                                      [](const Bin& a, const Bin& b) { return a.count < b.count; });
  if (most.count == 0)
    return qRgb(255, 255, 255);
  return qRgb(int(most.r / most.count), int(most.g / most.count), int(most.b / most.count));
}

Trace traceCurve(const QImage& picture, const QPoint& seed, const TraceOptions& options) {
  const QImage plain = picture.format() == QImage::Format_RGB32
                           ? picture
                           : picture.convertToFormat(QImage::Format_RGB32);
  if (plain.isNull())
    return {};
  const QRgb paper = paperColour(plain);
  const std::vector<QPoint> around = strokesAround(plain, paper, seed);
  if (around.size() > 2 && around.size() <= mostStrokes) {
    std::vector<Found> strokes;
    for (const QPoint& place : around)
      if (auto one = followed(plain, paper, place, options))
        if (one->trace.line.size() >= leastColumns)
          strokes.push_back(std::move(*one));
    if (const auto one = meant(strokes, seed))
      return one->trace;
  }
  const auto one = followed(plain, paper, seed, options);
  return one ? one->trace : Trace();
}
