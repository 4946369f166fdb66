#include "Core/Digital/ConverterTiming.h"

double atLeastReciprocal(double present, double other) {
  if (!(other > 0) || !(1 / other > present))
    return present;
  // The reciprocal of a reciprocal may miss by a rounding: the two belong together all the same.
  const bool belongTogether = present > 0 && 1 / present == other;
  return belongTogether ? present : 1 / other;
}
