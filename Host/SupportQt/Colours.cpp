#include "HostSupportQt/Colours.h"

#include <algorithm>
#include <cmath>

static double luminance(const QColor& colour) {
  const auto linear = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double sp_Contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor sp_WrongColour(const QColor& ground) {
  constexpr double readable = 4.5;
  const QColor darkRed(183, 28, 28);
  const QColor lightRed(255, 138, 128);
  for (const QColor& colour : {darkRed, lightRed, QColor(Qt::black)})
    if (sp_Contrast(colour, ground) >= readable)
      return colour;
  return Qt::white; // readable wherever black is not
}
