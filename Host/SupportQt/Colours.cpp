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

QColor sp_MixedColour(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](double from, double to) { return from + (to - from) * share; };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                          mix(a.blueF(), b.blueF()), a.alphaF());
}

QColor sp_SeenColour(const QColor& colour, const QColor& ground, double contrast) {
  constexpr int steps = 10;
  const QColor away =
      sp_Contrast(ground, Qt::white) > sp_Contrast(ground, Qt::black) ? Qt::white : Qt::black;
  QColor seen = colour;
  for (int i = 1; i <= steps && sp_Contrast(seen, ground) < contrast; ++i)
    seen = sp_MixedColour(colour, away, double(i) / steps);
  return seen;
}

QColor sp_WrongColour(const QColor& ground) {
  const QColor darkRed(183, 28, 28);
  const QColor lightRed(255, 138, 128);
  for (const QColor& colour : {darkRed, lightRed, QColor(Qt::black)})
    if (sp_Contrast(colour, ground) >= sp_readableContrast)
      return colour;
  return Qt::white; // readable wherever black is not
}
