#pragma once

#include "Core/Pwl/EnergyConversion.h"
#include "UserFunction.h"

#include <QCoreApplication>

#include <optional>

/// The host's functions on curves, called through the argument block of a script call.
///
/// A function that is not served, that fails, or that gives something else than a curve raises a
/// `KelvarinException` with a message for the user.
class HostCurves {
  Q_DECLARE_TR_FUNCTIONS(HostCurves)

public:
  explicit HostCurves(UserFunctionInterface* argumentBlock) : call(argumentBlock) {}

  /// A thousand evenly spaced points of a curve, which must not be empty.
  Curve resampled(const Curve& curve) const;
  /// y at `x`; nothing where the curve does not get there.
  std::optional<double> valueAt(double x, const Curve& curve) const;
  Curve integral(const Curve& curve) const;
  /// The polyline of about so many segments that stands for the charge of a capacitor, or the flux
  /// linkage of an inductor.
  Curve fitted(const Curve& curve, double segments, EnergyStorage kind) const;

private:
  Curve curveFrom(const char* function, std::vector<UserArgument> operands) const;

  UserFunctionInterface* call;
};
