#pragma once

#include "Core/Frame/Words.h"
#include "Core/Pwl/PwlPoints.h"

#include <QString>

#include <vector>

// Between capacitance over voltage and charge over voltage, and between inductance over current and
// flux linkage over current. Curves stand as text in tables; each step reads what the text before
// it retained.

/// What stores the energy.
enum class EnergyStorage { None, Inductor, Capacitor };
inline constexpr Words<EnergyStorage> energyStorages = {{"inductor", EnergyStorage::Inductor},
                                                        {"capacitor", EnergyStorage::Capacitor}};

/// A curve by its numbers; both vectors have the same length.
struct Curve {
  std::vector<double> x;
  std::vector<double> y;

  std::size_t size() const { return x.size(); }
  void append(double newX, double newY);
};

/// The number that a text begins with, in any locale and without a suffix, as C programs read it; 0
/// where none stands.
double leadingReal(const QString& text);

QString engText(double value);   ///< engineering text of six significant digits
QString exactText(double value); ///< text that reads back to the same value

/// The numbers of points that are engineering text. An expression counts as 0.
Curve curveOfEngText(const PwlPoints& points);
PwlPoints engTextOfCurve(const Curve& curve);

/// The numbers of points that are exact text.
Curve curveOfExactText(const PwlPoints& points);
PwlPoints exactTextOfCurve(const Curve& curve);

/// Points as they are pasted: leading numbers, written as engineering text.
PwlPoints withoutSuffixes(PwlPoints points);

/// How many texts lose what by that.
struct SuffixLoss {
  int whole = 0; ///< nothing: they are numbers
  int cut = 0;   ///< what stands behind the number
  int zeros = 0; ///< all, since they begin with none
};
SuffixLoss lossWithoutSuffixes(const PwlPoints& points);

/// Whether two neighbours have the same x text, as in what `differentiate` gives.
bool isStepWise(const PwlPoints& points);

/// The flat steps whose integral is this polyline: two points per piece, at its slope. Where two
/// points have the same x the slope is infinite or NaN.
Curve differentiate(const Curve& points);

/// The points before the first whose x is beyond the limit, or NaN.
Curve upTo(double limit, const Curve& curve);

/// A power of ten and the prefix that stands for it.
struct EngUnit {
  double scale = 1;
  QString prefix;
};

/// The unit in which a value has one to three digits before the point: steps of 1000 from 1e21
/// down. Scale 1 and no prefix for 0, negative values, NaN and infinities. Powers of ten without a
/// prefix are written "e" and the exponent.
EngUnit engUnitOf(double value);

/// A curve in other units.
Curve scaled(const Curve& curve, const EngUnit& x, const EngUnit& y);

/// Smallest and largest of the finite values; 0 and 1 where there are none.
struct Range {
  double minimum = 0;
  double maximum = 1;
};
Range rangeOf(const std::vector<double>& values, const std::vector<double>& others);

/// What the plots show, each curve in the units beside it.
struct EnergyPlot {
  Curve input;
  Curve integral;
  Curve output;
  Curve derivative; ///< of the output
  EngUnit xUnit;
  EngUnit inputUnit;
  EngUnit outputUnit;
};

/// Scales the curves by the first y of the input and the last x and y of the output.
EnergyPlot energyPlot(const Curve& input, const Curve& integral, const Curve& output);
