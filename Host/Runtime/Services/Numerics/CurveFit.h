#pragma once

#include "Services/Numerics/Curves.h"

/// The straight-line curve of `segments` pieces that stays closest to a curve: of all continuous
/// ones through its first and last point, the one whose greatest vertical distance from it,
/// anywhere along it, is the smallest.
///
/// The inner corners are free in x and y. Over the first and the last interval of the curve the
/// distance allowed shrinks evenly to nothing at the end point, else the closest polyline could
/// begin or end with a step. The distance is the smallest there is to about 1 in 10^10, and no
/// local optimum.
///
/// Why the greatest distance and not the sum of squares: it bounds the error at every single
/// voltage or current, and its optimum over free corners can be found, while the sum of squares has
/// many local optima.
///
/// How: whether a polyline of k pieces fits into the corridor of curve ± distance is decided by
/// looking along it from the first point. What one piece can see ends at a line that touches both
/// walls; every polyline that goes on has to cross that line, so the next piece looks from there on
/// (S. Suri, "A linear time algorithm for minimum link paths inside a simple polygon", 1986; the
/// lines themselves: J. O'Rourke, "An on-line algorithm for fitting straight lines between data
/// ranges", 1981). Bisection then narrows the corridor. Time: linear in the points, whatever the
/// number of segments.
///
/// The slope of each piece lies between the smallest and the largest slope of the curve, which
/// costs nothing in distance. So a charge that rises stays one that rises, and no piece stands for
/// a capacitance that the data sheet does not have.
///
/// The result has `segments` + 1 points, x strictly ascending, the first and last those of the
/// curve. Where fewer pieces are enough, they are cut in even parts. A curve that has no more than
/// `segments` pieces itself is given back. The order of the points does not matter; points whose x
/// differ by less than 10^-12 of the range count as one, halfway between the lowest and the
/// highest of them, or as the end point itself. Nothing gives nothing, and a curve that is all at
/// one x gives one point.
///
/// `segments` is at least 1.
Curve fitPolyline(const Curve& curve, int segments);
