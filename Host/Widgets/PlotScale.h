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

struct PlotTicks {
  QList<double> major, minor; ///< ascending; no value is in both
  double step = 0;            ///< between two major ones
};

/// Divides a usable range: exactly `lines` between the ends where that makes round steps, else
/// about as many at round values. None for 0. `minorLines` is at most how many stand between two of
/// them; 0: as suit the step.
PlotTicks plotTicks(const PlotRange& range, unsigned lines, unsigned minorLines);

/// The smallest range around a usable one that a round step divides from end to end, with as near
/// to `*lines` between its ends as that allows; their number goes back.
PlotRange roundedRange(const PlotRange& range, unsigned* lines);

/// `value` in engineering notation, or without prefixes, with the digits that tell it from
/// `value + resolution`.
QString plotNumber(double value, double resolution, bool hasPrefixes = true);
