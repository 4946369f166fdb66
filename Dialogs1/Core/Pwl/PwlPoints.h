#pragma once

#include <QStringList>
#include <QVector>

/// A point of a piecewise-linear curve, as the user typed it: numbers or expressions in braces.
struct PwlPoint {
  QString x;
  QString y;
};
using PwlPoints = QVector<PwlPoint>;

inline bool operator==(const PwlPoint& a, const PwlPoint& b) {
  return a.x == b.x && a.y == b.y;
}

/// A cell's text as it leaves the table: without blanks.
QString normalisedCell(const QString& text);

/// Whether a cell can be a number or an expression in braces: of a number only the first character
/// is looked at, the simulator reads the rest.
bool isValidCell(const QString& text, bool mayBeNegative);

/// The points that stand in a text between blanks, line breaks, commas and parentheses, x and y in
/// turn; a last x without a y is left out, and counted in `*leftOut`.
PwlPoints pointsInText(const QString& text, int* leftOut = nullptr);

/// x and y in turn, with single blanks between.
QString textOfPoints(const PwlPoints& points);
/// The points of such a text; a last x without a y is left out.
PwlPoints pointsOfText(const QString& text);

/// Whether the first half of a curve is, as text, the second half mirrored at the origin.
bool isSymmetric(const PwlPoints& points);
/// Of a symmetric curve the points that the user edits: those behind the origin. The middle one of
/// an odd number is the origin, if it reads 0, and else the first of these.
PwlPoints firstQuadrant(const PwlPoints& points);
/// The whole curve whose first quadrant is given; the origin is not among its points.
PwlPoints withMirrorImage(const PwlPoints& firstQuadrant);
