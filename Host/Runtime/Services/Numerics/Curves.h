#pragma once

#include <vector>

/// A point of a curve, in whatever units its axes have.
struct CurvePoint {
  double x = 0;
  double y = 0;
};

/// Points in the order in which straight lines join them. The functions on curves ask for numbers
/// from -`largestCurveValue` to `largestCurveValue`, so that no difference or product overflows.
using Curve = std::vector<CurvePoint>;

constexpr double largestCurveValue = 1e150;

/// y on the straight line through two points of different x.
double valueOnLine(const CurvePoint& a, const CurvePoint& b, double x);

/// The points by ascending x. Those of equal x stay in their order.
Curve orderedByX(Curve curve);

/// `count` points, evenly from the smallest to the largest x, on the straight lines between the
/// given ones. The order in which the points are given does not matter. Where several have the same
/// x the curve has a step, and at the step it has the value of the last of them. A curve whose
/// points all have the same x gives one point, an empty one none; `count` 1 gives the first point.
Curve resampled(const Curve& curve, int count);

/// As above, at `offset`, `offset + interval`, … behind the smallest x, to the largest x at most.
/// `offset` is not negative, `interval` is positive. Nothing is made beyond `most` points.
Curve resampled(const Curve& curve, double interval, double offset, int most);

/// y wherever the curve, walked in its order, passes `x`: interpolated linearly, or of a point that
/// lies there. Empty where the curve does not get there.
std::vector<double> valuesAt(const Curve& curve, double x);

/// The integral of y over x from the first point on, at each point; 0 at the first. The trapezoidal
/// rule, which is exact, since the curve is straight between its points. Where x goes back the area
/// counts as negative, so the result is a function of x even then.
Curve runningIntegral(const Curve& curve);
