#include "Services/Digitiser/Stroke.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int seedReach = 4;         // pixels around the click in which the stroke is looked for
constexpr double leastContrast = 40; // between stroke and paper, of 441
constexpr double faintest = 0.2;     // share of the stroke's colour that a hole in it may have
constexpr int hiddenRows = 3;        // that a line of another colour may lie upon the stroke
constexpr double offColour = 0.35;   // residual beyond which an edge pixel is not the stroke's
constexpr double hueShare = 0.5;     // of the tolerance, for what is neither ink nor paper
constexpr double solidShare = 0.6;   // of the tolerance, beyond a gap
constexpr double noise = 15;         // of 441, that a hue may always have

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

} // namespace

Stroke::Stroke(const QImage& picture, QRgb paper, int tolerance)
    : m_picture(picture), m_paper(colourOf(paper)), m_tolerance(qBound(5, tolerance, 95) / 100.0) {}

Colour Stroke::at(int x, int y) const {
  return colourOf(reinterpret_cast<const QRgb*>(m_picture.constScanLine(y))[x]);
}

Stroke::Mixture Stroke::mixtureAt(int x, int y) const {
  const Colour off = at(x, y) - m_paper;
  const double part = dot(off, m_way) / m_square;
  return {part, std::max(0.0, dot(off, off) / m_square - part * part)};
}

/// Faint or dark the stroke may be, to the tolerance; its hue has to be kept more closely, or
/// grey edges of black lines would pass for a thin red curve.
bool Stroke::isInk(int x, int y, double tolerance) const {
  const Mixture mixture = mixtureAt(x, y);
  if (std::abs(mixture.part - 1) > tolerance)
    return false;
  const double least = noise * noise / m_square;
  return mixture.residual <= std::max(least, std::pow(hueShare * tolerance * mixture.part, 2));
}

bool Stroke::isDrawn(int x, int y, double contrast) const {
  return isInside(x, y) && length(at(x, y) - m_paper) >= contrast;
}

bool Stroke::isSolid(const Run& run) const {
  for (int y = run.top; y <= run.bottom; ++y)
    if (isInk(run.x, y, solidShare * m_tolerance))
      return true;
  return false;
}

double Stroke::contrast() const {
  return std::sqrt(m_square);
}

// ---- the colour ---------------------------------------------------------------------------------

void Stroke::setInk(const Colour& ink) {
  m_ink = ink;
  m_way = ink - m_paper;
  m_square = dot(m_way, m_way);
}

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
      if (square >= nearest || !isDrawn(x, y, leastContrast))
        continue;
      nearest = square;
      found = QPoint(x, y);
    }
  if (!found)
    return std::nullopt;
  takePurer(&*found);
  takeMean(*found);
  return found;
}

/// An edge is a mixture with the paper: goes on to where the same colour is purer.
void Stroke::takePurer(QPoint* found) {
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
      return;
    *found = better;
  }
}

/// The mean of its like, so that noise does not choose the colour.
void Stroke::takeMean(const QPoint& found) {
  setInk(at(found.x(), found.y()));
  const double like = 0.25 * length(m_way);
  Colour sum;
  int count = 0;
  for (int y = found.y() - 2; y <= found.y() + 2; ++y)
    for (int x = found.x() - 2; x <= found.x() + 2; ++x)
      if (isInside(x, y) && length(at(x, y) - m_ink) <= like) {
        const Colour one = at(x, y);
        sum = {sum.r + one.r, sum.g + one.g, sum.b + one.b};
        ++count;
      }
  setInk({sum.r / count, sum.g / count, sum.b / count});
}

// ---- runs ---------------------------------------------------------------------------------------

/// Whether something that is neither the stroke nor paper lies there.
bool Stroke::isHidden(int x, int y) const {
  return isDrawn(x, y, leastContrast) && mixtureAt(x, y).residual > offColour * offColour;
}

/// The stroke's next row beyond a hole in it; `y` itself where it ends.
int Stroke::beyondHole(int x, int y, int step) const {
  if (has(x, y + step))
    return y + step;
  if (has(x, y + 2 * step) && share(x, y + step) > faintest)
    return y + 2 * step;
  for (int rows = 1; rows <= hiddenRows && isHidden(x, y + rows * step); ++rows)
    if (has(x, y + (rows + 1) * step))
      return y + (rows + 1) * step;
  return y;
}

Run Stroke::runAt(int x, int y) const {
  Run run;
  run.x = x;
  run.top = run.bottom = y;
  for (int next; (next = beyondHole(x, run.top, -1)) != run.top;)
    run.top = next;
  for (int next; (next = beyondHole(x, run.bottom, 1)) != run.bottom;)
    run.bottom = next;
  double sum = 0;
  for (int row = run.top - 1; row <= run.bottom + 1; ++row) {
    const bool isWithin = row > run.top && row < run.bottom;
    const double part = isWithin && isHidden(x, row) ? 1 : share(x, row);
    sum += part * (row + 0.5);
    run.ink += part;
  }
  run.isCut = isHidden(x, run.top - 1) || isHidden(x, run.bottom + 1);
  run.middle = run.ink > 0 ? sum / run.ink : (run.top + run.bottom + 1) / 2.0;
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
