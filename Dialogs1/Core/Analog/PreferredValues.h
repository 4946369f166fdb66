#pragma once

/// The preferred values of a decade, of which a series takes all or every so many.
enum class PreferredSeries { E24 = 1, E12 = 2, E6 = 4 };

/// The neighbour of a value among those of a series, 1 to 10. A value between two of them counts as
/// the lower one; one at either end of the decade stays there. Below 1 there is none: what would
/// stand below is 0 in E24, and 1 in the others.
double preferredAbove(double value, PreferredSeries series);
double preferredBelow(double value, PreferredSeries series);

/// A number as a base with its sign, from 1 to 10, times a power of ten. What has none, as 0 and
/// infinities, is itself times 1.
struct BaseAndDecade {
  double base = 0;
  double decade = 1;
};
BaseAndDecade splitValue(double value);
