#include "Core/Analog/PreferredValues.h"

#include "Core/Pieces/AsWritten.h"

#include <array>
#include <cmath>

namespace {

constexpr std::array e24 = {1.0, 1.1, 1.2, 1.3, 1.5, 1.6, 1.8, 2.0, 2.2, 2.4, 2.7, 3.0,
                            3.3, 3.6, 3.9, 4.3, 4.7, 5.1, 5.6, 6.2, 6.8, 7.5, 8.2, 9.1};
constexpr int count = static_cast<int>(e24.size());

/// Place of the value of the series that is not above this one; -1 for E24 where there is none.
int placeOf(double value, int step) {
  constexpr double tolerance = 1e-9;
  int place = count - 1;
  while (place >= 0 && !(value + tolerance > e24[static_cast<std::size_t>(place)]))
    --place;
  return place - place % step;
}

double at(int place) {
  return place < 0 ? 0 : e24[static_cast<std::size_t>(place)];
}

} // namespace

double preferredAbove(double value, PreferredSeries series) {
  const int step = static_cast<int>(series);
  const int place = placeOf(value, step);
  return at(place < count - step ? place + step : place);
}

double preferredBelow(double value, PreferredSeries series) {
  const int step = static_cast<int>(series);
  const int place = placeOf(value, step);
  return at(place >= step ? place - step : place);
}

BaseAndDecade splitValue(double value) {
  const double size = std::abs(value);
  const double decade = asWritten(std::pow(10, std::floor(std::log10(size))));
  if (!std::isnormal(size) || !std::isnormal(decade))
    return {size == 0 ? 0 : value, 1};
  return {std::copysign(asWritten(size / decade), value), decade};
}
