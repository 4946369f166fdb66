#pragma once

#include <QImage>

#include <optional>
#include <vector>

/// A colour, or the way from one to another.
struct Colour {
  double r = 0, g = 0, b = 0;
};

/// A stretch of a column that belongs to the stroke.
struct Run {
  int x = 0;
  int top = 0;
  int bottom = 0; ///< the last row
  double middle = 0;
  double ink = 0;     ///< rows that the stroke covers, edges by their share
  bool isCut = false; ///< another colour lies upon an edge of it
  double at() const { return x + 0.5; }
  int length() const { return bottom - top + 1; }
  bool isSame(const Run& other) const { return x == other.x && top == other.top; }
};

/// Which pixels have a stroke's colour, and how much of it.
class Stroke {
public:
  Stroke(const QImage& picture, QRgb paper, int tolerance);

  /// Takes the colour near `seed`; the pixel it was found at.
  std::optional<QPoint> takeColour(const QPoint& seed);

  bool has(int x, int y) const { return isInside(x, y) && isInk(x, y, m_tolerance); }
  /// Whether something is drawn there, in whatever colour.
  bool isDrawn(int x, int y, double contrast) const;
  /// Whether a run has a pixel that leaves no doubt: noise beyond a gap has not.
  bool isSolid(const Run& run) const;
  /// The run around a pixel that the stroke has. Small holes are noise, or hidden.
  Run runAt(int x, int y) const;
  /// The middle of a row's run around a pixel that the stroke has.
  double middleOfRow(int x, int y) const;
  /// The runs of a column that meet the rows `from` to `to`, downwards.
  std::vector<Run> runs(int x, int from, int to) const;
  /// How strong the stroke's colour is.
  double contrast() const;

private:
  bool isInside(int x, int y) const {
    return x >= 0 && y >= 0 && x < m_picture.width() && y < m_picture.height();
  }
  /// A pixel as paper and ink: how much ink, and the square of what is neither, relative to the
  /// square of the contrast.
  struct Mixture {
    double part, residual;
  };
  Colour at(int x, int y) const;
  Mixture mixtureAt(int x, int y) const;
  bool isInk(int x, int y, double tolerance) const;
  void setInk(const Colour& ink);
  void takePurer(QPoint* found);
  void takeMean(const QPoint& found);
  double share(int x, int y) const;
  bool isHidden(int x, int y) const;
  int beyondHole(int x, int y, int step) const;

  const QImage& m_picture;
  Colour m_paper;
  Colour m_ink;
  Colour m_way;        ///< from the paper to the ink
  double m_square = 1; ///< of its length
  double m_tolerance;
};
