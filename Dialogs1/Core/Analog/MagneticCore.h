#pragma once

#include "Core/Frame/Texts.h"

#include <optional>

/// A transformer's core. Lengths are in metres.
struct MagneticCore {
  double area = 0;         ///< effective, in square metres
  double length = 0;       ///< effective, in metres
  double permeability = 0; ///< effective, relative: air gaps count
  QString material;

  /// Inductance of a winding of one turn; 0 where the length is not known.
  double inductancePerTurnSquared() const;
  /// The current at which a winding brings the core to a flux density, in tesla; nothing where
  /// turns or permeability are not known.
  std::optional<double> currentAt(double fluxDensity, double turns) const;
};

/// Reads a line of a script's table of cores: name; area; length; permeability; material. Nothing
/// where a field is missing.
std::optional<MagneticCore> readCore(const char* line);
/// The flux density at which a material saturates, third field of its line, in tesla. A number
/// without a suffix: what follows it is not read.
std::optional<double> saturationFluxDensity(const char* line);

/// What each line of a table begins with, up to the first semicolon.
QStringList firstFields(const Texts& lines);
/// The first name equal to `name` in any letter case; -1 where there is none.
int indexOfName(const QStringList& names, const QString& name);

/// A quantity as a label shows it: "4.7mH".
QString quantityText(double value, const char* unit);
