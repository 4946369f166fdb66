#pragma once

#include <QList>
#include <QString>

// Ranges and their division, without a widget.

struct PlotRange {
  double low = 0;
  double high = 1;

  double width() const { return high - low; }
  double centre() const { return low + width() / 2; }
  bool operator==(const PlotRange& other) const { return low == other.low && high == other.high; }
  bool operator!=(const PlotRange& other) const { return !(*this == other); }
};

/// The range from `a` to `b` as one that can be divided and drawn: ends finite and within 1e300, in
/// order, and far enough apart to be told from each other. A range that is so already stays.
PlotRange usableRange(double a, double b);

/// The range between two values as the scale has it: in decades where it is logarithmic, and then
/// within those that can be drawn.
PlotRange scaleRange(double a, double b, bool isLogarithmic);
/// The value at a place of the scale.
double valueAt(double place, bool isLogarithmic);
/// The same range of decades, but for rounding: it has been values meanwhile.
bool isSameRange(const PlotRange& a, const PlotRange& b, bool isLogarithmic);

struct PlotTicks {
  QList<double> major, minor; ///< ascending; no value is in both
  double step = 0;            ///< between two major ones; 0 where they stand by decades
};

/// Divides a usable range: exactly `lines` between the ends where that makes round steps, else
/// about as many at round values. None for 0. `minorLines` is at most how many stand between two of
/// them; 0: as suit the step.
PlotTicks plotTicks(const PlotRange& range, unsigned lines, unsigned minorLines);

/// Divides a range of decades: at decades, each or each so-many so that there are about `lines`,
/// also at 2 and 5 where less than two decades are in the range, and as a linear one where it is
/// only a part of one. The ticks are values.
PlotTicks decadeTicks(const PlotRange& decades, unsigned lines, unsigned minorLines);

/// The smallest range around a usable one that a round step divides from end to end, with as near
/// to `*lines` between its ends as that allows; their number goes back.
PlotRange roundedRange(const PlotRange& range, unsigned* lines);

/// `value` in engineering notation, or without prefixes, with the digits that tell it from
/// `value + resolution`; 0 is for a round value by itself.
QString plotNumber(double value, double resolution, bool hasPrefixes = true);
