#pragma once

#include "Core/Pwl/EnergyConversion.h"
#include "UserFunction.h"

#include <QCoreApplication>

#include <optional>

/// What a host function has given, or the message for the user that says why it has not.
template <class T> struct HostAnswer {
  T value;
  QString fault; ///< empty where there is a value

  explicit operator bool() const { return fault.isEmpty(); }
};

/// The host's functions on curves, called through the argument block of a script call.
///
/// A function that is not served, that fails, or that gives something else than a curve answers
/// with its fault.
class HostCurves {
  Q_DECLARE_TR_FUNCTIONS(HostCurves)

public:
  explicit HostCurves(UserFunctionInterface* argumentBlock) : call(argumentBlock) {}

  /// A thousand evenly spaced points of a curve, which must not be empty.
  HostAnswer<Curve> resampled(const Curve& curve) const;
  /// y at `x`; nothing where the curve does not get there.
  HostAnswer<std::optional<double>> valueAt(double x, const Curve& curve) const;
  HostAnswer<Curve> integral(const Curve& curve) const;
  /// The polyline of about so many segments that stands for the charge of a capacitor, or the flux
  /// linkage of an inductor.
  HostAnswer<Curve> fitted(const Curve& curve, double segments, EnergyStorage kind) const;

private:
  HostAnswer<UserArgument> resultOf(const char* function, std::vector<UserArgument> operands) const;
  HostAnswer<Curve> curveFrom(const char* function, std::vector<UserArgument> operands) const;

  UserFunctionInterface* call;
};
