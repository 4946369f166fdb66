#include "Services/Digitiser/CurveTracer.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

namespace {

constexpr int seedReach = 4;          // pixels around the click in which the stroke is looked for
constexpr double leastContrast = 40;  // between stroke and paper, of 441
constexpr double faintest = 0.2;      // share of the stroke's colour that a hole in it may have
constexpr double offColour = 0.35;    // residual beyond which an edge pixel is not the stroke's
constexpr double hueShare = 0.5;      // of the tolerance, for what is neither ink nor paper
constexpr double solidShare = 0.6;    // of the tolerance, beyond a gap
constexpr double noise = 15;          // of 441, that a hue may always have
constexpr int slopeColumns = 8;       // from which the direction is taken
constexpr double leastOvershoot = 6;  // pixels by which a line across exceeds the stroke
constexpr double steepSlope = 1.5;    // from here on a gap may lie within a column
constexpr int paperSamples = 1 << 20; // pixels looked at for the paper's colour

struct Colour {
  double r = 0, g = 0, b = 0;
};

Colour colourOf(QRgb rgb) {
  return {double(qRed(rgb)), double(qGreen(rgb)), double(qBlue(rgb))};
}
Colour operator-(const Colour& a, const Colour& b) {
  return {a.r - b.r, a.g - b.g, a.b - b.b};
}
double dot(const Colour& a, const Colour& b) {
  return a.r * b.r + a.g * b.g + a.b * b.b;
}
double length(const Colour& a) {
  return std::sqrt(dot(a, a));
}

/// A stretch of a column that belongs to the stroke.
struct Run {
  int x = 0;
  int top = 0;
  int bottom = 0; ///< the last row
  double middle = 0;
  double at() const { return x + 0.5; }
  int length() const { return bottom - top + 1; }
};

/// Which pixels have the stroke's colour, and how much of it.
class Stroke {
public:
  Stroke(const QImage& picture, int tolerance)
      : m_picture(picture), m_paper(colourOf(paperColour(picture))),
        m_tolerance(qBound(5, tolerance, 95) / 100.0) {}

  /// Takes the colour near `seed`; the pixel it was found at.
  std::optional<QPoint> takeColour(const QPoint& seed);

  bool has(int x, int y) const { return isInside(x, y) && isInk(x, y, m_tolerance); }
  /// Whether a run has a pixel that leaves no doubt: noise beyond a gap has not.
  bool isSolid(const Run& run) const {
    for (int y = run.top; y <= run.bottom; ++y)
      if (isInk(run.x, y, solidShare * m_tolerance))
        return true;
    return false;
  }
  /// The run around a pixel that the stroke has. Holes of one pixel are noise.
  Run runAt(int x, int y) const;
  /// The middle of a row's run around a pixel that the stroke has.
  double middleOfRow(int x, int y) const;
  /// The runs of a column that meet the rows `from` to `to`, downwards.
  std::vector<Run> runs(int x, int from, int to) const;

  int width() const { return m_picture.width(); }

private:
  bool isInside(int x, int y) const {
    return x >= 0 && y >= 0 && x < m_picture.width() && y < m_picture.height();
  }
  Colour at(int x, int y) const {
    return colourOf(reinterpret_cast<const QRgb*>(m_picture.constScanLine(y))[x]);
  }
  /// A pixel as paper and ink: how much ink, and the square of what is neither, relative to the
  /// square of the contrast.
  struct Mixture {
    double part, residual;
  };
  Mixture mixtureAt(int x, int y) const {
    const Colour off = at(x, y) - m_paper;
    const double part = dot(off, m_way) / m_square;
    return {part, std::max(0.0, dot(off, off) / m_square - part * part)};
  }
  /// Faint or dark the stroke may be, to the tolerance; its hue has to be kept more closely, or
  /// grey edges of black lines would pass for a thin red curve.
  bool isInk(int x, int y, double tolerance) const {
    const Mixture mixture = mixtureAt(x, y);
    if (std::abs(mixture.part - 1) > tolerance)
      return false;
    const double least = noise * noise / m_square;
    return mixture.residual <= std::max(least, std::pow(hueShare * tolerance * mixture.part, 2));
  }
  void setInk(const Colour& ink) {
    m_ink = ink;
    m_way = ink - m_paper;
    m_square = dot(m_way, m_way);
  }
  double share(int x, int y) const;
  bool isHole(int x, int y, int beyond) const { return has(x, beyond) && share(x, y) > faintest; }

  const QImage& m_picture;
  Colour m_paper;
  Colour m_ink;
  Colour m_way;        ///< from the paper to the ink
  double m_square = 1; ///< of its length
  double m_tolerance;
};

/// How much of a pixel the stroke covers, when the rest of it is paper; 0 for other colours.
double Stroke::share(int x, int y) const {
  if (!isInside(x, y))
    return 0;
  const Mixture mixture = mixtureAt(x, y);
  return mixture.residual > offColour * offColour ? 0 : qBound(0.0, mixture.part, 1.0);
}

std::optional<QPoint> Stroke::takeColour(const QPoint& seed) {
  std::optional<QPoint> found;
  double nearest = (seedReach + 0.5) * (seedReach + 0.5);
  for (int y = seed.y() - seedReach; y <= seed.y() + seedReach; ++y)
    for (int x = seed.x() - seedReach; x <= seed.x() + seedReach; ++x) {
      const double square = std::pow(x - seed.x(), 2) + std::pow(y - seed.y(), 2);
      if (square >= nearest || !isInside(x, y) || length(at(x, y) - m_paper) < leastContrast)
        continue;
      nearest = square;
      found = QPoint(x, y);
    }
  if (!found)
    return std::nullopt;

  // An edge is a mixture with the paper: go on to where the same colour is purer.
  for (int pass = 0; pass < seedReach; ++pass) {
    setInk(at(found->x(), found->y()));
    double purest = 1.02;
    QPoint better = *found;
    for (int y = found->y() - 1; y <= found->y() + 1; ++y)
      for (int x = found->x() - 1; x <= found->x() + 1; ++x) {
        if (!isInside(x, y))
          continue;
        const Mixture mixture = mixtureAt(x, y);
        if (mixture.part > purest && mixture.residual < std::pow(offColour * mixture.part, 2)) {
          purest = mixture.part;
          better = QPoint(x, y);
        }
      }
    if (better == *found)
      break;
    found = better;
  }

  // The mean of its like, so that noise does not choose the colour.
  setInk(at(found->x(), found->y()));
  const double like = 0.25 * length(m_way);
  Colour sum;
  int count = 0;
  for (int y = found->y() - 2; y <= found->y() + 2; ++y)
    for (int x = found->x() - 2; x <= found->x() + 2; ++x)
      if (isInside(x, y) && length(at(x, y) - m_ink) <= like) {
        const Colour one = at(x, y);
        sum = {sum.r + one.r, sum.g + one.g, sum.b + one.b};
        ++count;
      }
  setInk({sum.r / count, sum.g / count, sum.b / count});
  return found;
}

Run Stroke::runAt(int x, int y) const {
  Run run;
  run.x = x;
  run.top = run.bottom = y;
  while (has(x, run.top - 1) || isHole(x, run.top - 1, run.top - 2))
    --run.top;
  while (has(x, run.bottom + 1) || isHole(x, run.bottom + 1, run.bottom + 2))
    ++run.bottom;
  double sum = 0;
  double weight = 0;
  for (int row = run.top - 1; row <= run.bottom + 1; ++row) {
    const double part = share(x, row);
    sum += part * (row + 0.5);
    weight += part;
  }
  run.middle = weight > 0 ? sum / weight : (run.top + run.bottom + 1) / 2.0;
  return run;
}

double Stroke::middleOfRow(int x, int y) const {
  int left = x, right = x;
  while (has(left - 1, y))
    --left;
  while (has(right + 1, y))
    ++right;
  return (left + right + 1) / 2.0;
}

std::vector<Run> Stroke::runs(int x, int from, int to) const {
  std::vector<Run> found;
  const int last = std::min(to, m_picture.height() - 1);
  for (int y = std::max(0, from); y <= last; ++y)
    if (has(x, y)) {
      found.push_back(runAt(x, y));
      y = found.back().bottom;
    }
  return found;
}

/// Follows the stroke to one side.
class Walk {
public:
  Walk(const Stroke& stroke, int direction, int gap)
      : m_stroke(stroke), m_direction(direction), m_gap(std::max(0, gap)) {}

  /// `path` holds the columns so far, the last one first to go on from.
  void go(std::vector<Run>* path) const;
  /// Where a steep stroke ends. Its last columns, which the end cuts short, leave the path.
  std::optional<QPointF> tip(std::vector<Run>* path, std::size_t keep) const;

private:
  double slope(const std::vector<Run>& path) const;
  bool goesAcross(const Run& run, const Run& from) const;
  std::optional<Run> next(const Run& from, double slope) const;
  std::optional<Run> beyondGap(const Run& from, double slope) const;

  const Stroke& m_stroke;
  int m_direction;
  int m_gap;
};

/// Rows by which the stroke sinks for each column in the walk's direction.
double Walk::slope(const std::vector<Run>& path) const {
  if (path.size() < 2)
    return 0;
  const Run& last = path.back();
  std::size_t i = path.size() - 1;
  while (i > 0 && std::abs(path[i].x - last.x) < slopeColumns)
    --i;
  return (last.middle - path[i].middle) / std::max(1, std::abs(last.x - path[i].x));
}

/// A curve goes on up or down from where it is; what goes far both ways is another line.
bool Walk::goesAcross(const Run& run, const Run& from) const {
  const double overshoot = leastOvershoot + from.length();
  return from.top - run.top > overshoot && run.bottom - from.bottom > overshoot;
}

std::optional<Run> Walk::next(const Run& from, double slope) const {
  std::optional<Run> best;
  double least = 0;
  const double expected = from.middle + slope;
  for (const Run& run : m_stroke.runs(from.x + m_direction, from.top - 1, from.bottom + 1)) {
    if (goesAcross(run, from))
      continue;
    const double off = std::abs(run.middle - expected);
    if (!best || off < least) {
      best = run;
      least = off;
    }
  }
  return best;
}

std::optional<Run> Walk::beyondGap(const Run& from, double slope) const {
  const bool steep = std::abs(slope) > steepSlope;
  const double anchor = !steep ? from.middle : slope > 0 ? from.bottom + 1 : from.top;
  std::optional<Run> best;
  double least = 0;
  for (int distance = steep ? 0 : 1; distance <= m_gap + 1; ++distance) {
    if (best && distance >= least)
      break;
    const double expected = anchor + slope * distance;
    const double reach = 2 + distance * (0.5 + 0.5 * std::abs(slope)) + (steep ? m_gap : 0);
    const int x = from.x + m_direction * distance;
    for (const Run& run : m_stroke.runs(x, qFloor(expected - reach), qCeil(expected + reach))) {
      if (distance == 0 && (slope > 0 ? run.top <= from.bottom : run.bottom >= from.top))
        continue; // where it came from
      if (goesAcross(run, from) || !m_stroke.isSolid(run))
        continue;
      const double entry = qBound(double(run.top), anchor, double(run.bottom + 1));
      const double way = std::hypot(distance, entry - anchor);
      if (way > m_gap + 1.5)
        continue;
      const double ahead = qBound(double(run.top), expected, double(run.bottom + 1));
      const double cost = way + 2 * std::abs(ahead - expected) / (1 + std::abs(slope));
      if (!best || cost < least) {
        best = run;
        least = cost;
      }
    }
  }
  return best;
}

void Walk::go(std::vector<Run>* path) const {
  const std::size_t begin = path->size();
  std::size_t stretch = begin; // where the last unbroken one starts
  int jumped = 0;              // columns before it
  for (;;) {
    const Run from = path->back();
    const double direction = slope(*path);
    if (const auto run = next(from, direction)) {
      path->push_back(*run);
      continue;
    }
    const auto run = beyondGap(from, direction);
    if (!run)
      break;
    if (run->x == from.x) { // the rest of a steep stretch that something lies across
      Run& last = path->back();
      last.middle = (last.middle * last.length() + run->middle * run->length()) /
                    (last.length() + run->length());
      last.top = std::min(last.top, run->top);
      last.bottom = std::max(last.bottom, run->bottom);
      continue;
    }
    stretch = path->size();
    jumped = std::abs(run->x - from.x) - 1;
    path->push_back(*run);
  }
  // A scrap beyond a gap is a letter or a tick rather than the curve.
  if (jumped > 0 && static_cast<int>(path->size() - stretch) <= jumped + 2)
    path->resize(std::max(begin, stretch));
}

std::optional<QPointF> Walk::tip(std::vector<Run>* path, std::size_t keep) const {
  const double steepness = slope(*path);
  if (std::abs(steepness) <= 1)
    return std::nullopt;
  const auto reaches = [&](const Run& run) { return steepness > 0 ? run.bottom : -run.top; };
  const Run end = path->back();
  std::size_t count = path->size();
  while (count > keep && reaches((*path)[count - 1]) + 0.5 * std::abs(steepness) > reaches(end))
    --count;
  if (count < 2 || count == path->size())
    return std::nullopt;
  path->resize(count);
  // The middle of its last row but one: the last may be the shadow of an edge.
  const int row =
      steepness > 0 ? std::max(end.top, end.bottom - 1) : std::min(end.bottom, end.top + 1);
  const QPointF place(m_stroke.middleOfRow(end.x, row), row + 0.5);
  if ((place.x() - path->back().at()) * m_direction <= 0)
    return std::nullopt;
  return place;
}

/// Every `step`-th column, and the last.
QVector<QPointF> sampled(const QVector<QPointF>& middles, int step) {
  QVector<QPointF> points;
  for (int i = 0; i < middles.size(); ++i)
    if (i == 0 || middles[i].x() - points.last().x() >= step || i == middles.size() - 1)
      points.append(middles[i]);
  return points;
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

QVector<QPointF> traceCurve(const QImage& picture, const QPoint& seed,
                            const TraceOptions& options) {
  const QImage plain = picture.format() == QImage::Format_RGB32
                           ? picture
                           : picture.convertToFormat(QImage::Format_RGB32);
  if (plain.isNull())
    return {};
  Stroke stroke(plain, options.tolerance);
  const std::optional<QPoint> start = stroke.takeColour(seed);
  if (!start || !stroke.has(start->x(), start->y()))
    return {};

  const Walk toRight(stroke, 1, options.gap);
  const Walk toLeft(stroke, -1, options.gap);
  std::vector<Run> right{stroke.runAt(start->x(), start->y())};
  toRight.go(&right);
  // What lies right of the seed tells the direction to its left.
  const std::size_t known = std::min<std::size_t>(right.size(), slopeColumns + 1);
  std::vector<Run> left(right.rend() - static_cast<std::ptrdiff_t>(known), right.rend());
  toLeft.go(&left);
  const auto rightTip = toRight.tip(&right, 1);
  const auto leftTip = toLeft.tip(&left, known);

  QVector<QPointF> middles;
  if (leftTip)
    middles.append(*leftTip);
  for (std::size_t i = left.size(); i-- > known;)
    middles.append({left[i].at(), left[i].middle});
  for (const Run& run : right)
    middles.append({run.at(), run.middle});
  if (rightTip)
    middles.append(*rightTip);
  return thinned(sampled(middles, std::max(1, options.step)), options.thinning);
}

QVector<QPointF> thinned(const QVector<QPointF>& line, double tolerance) {
  if (line.size() < 3 || !(tolerance > 0))
    return line;
  QVector<QPointF> kept{line.first()};
  double low = -M_PI, high = M_PI; // angles of lines from the last kept point that pass all since
  double farthest = 0;
  for (int i = 1; i < line.size(); ++i) {
    const auto narrow = [&](const QPointF& point) {
      const QPointF way = point - kept.last();
      const double distance = std::hypot(way.x(), way.y());
      if (distance <= tolerance)
        return;
      const double angle = std::atan2(way.y(), way.x());
      const double play = std::asin(tolerance / distance);
      low = std::max(low, angle - play);
      high = std::min(high, angle + play);
      farthest = std::max(farthest, distance);
    };
    const QPointF way = line[i] - kept.last();
    const double angle = std::atan2(way.y(), way.x());
    if (angle < low || angle > high || std::hypot(way.x(), way.y()) < farthest) {
      kept.append(line[i - 1]);
      low = -M_PI;
      high = M_PI;
      farthest = 0;
    }
    narrow(line[i]);
  }
  kept.append(line.last());
  return kept;
}
