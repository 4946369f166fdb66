#include "Pwl/HostCurves.h"

namespace {

constexpr double sampleCount = 1000;

/// The host reads operands only, although the records are not const.
UserArgument operand(const std::vector<double>& values, const double* reference = nullptr) {
  UserArgument argument{};
  argument.data = const_cast<double*>(values.data());
  argument.reference = reference;
  argument.count = static_cast<std::uint32_t>(values.size());
  argument.type = UserReal;
  return argument;
}

UserArgument operand(const Curve& curve) {
  return operand(curve.y, curve.x.data());
}

UserArgument operand(char** text) {
  UserArgument argument{};
  argument.data = text;
  argument.count = 1;
  argument.type = UserString;
  return argument;
}

/// Why a call has failed, where the host says so.
QString reasonIn(const UserArgument& result) {
  const bool isSaid = result.type == UserString && result.count == 1 && result.data;
  return isSaid ? QString::fromUtf8(*static_cast<char**>(result.data)).trimmed() : QString();
}

} // namespace

HostAnswer<UserArgument> HostCurves::resultOf(const char* function,
                                              std::vector<UserArgument> operands) const {
  UserArgument result{};
  const bool isServed = call && call->callFunction;
  if (isServed && call->callFunction(call, function, operands.data(),
                                     static_cast<int>(operands.size()), &result, nullptr) == 0)
    return {result, {}};
  const QString name = QLatin1String(function);
  const QString reason = reasonIn(result);
  return {{},
          reason.isEmpty() ? tr("The function \"%1\" has failed, or is not available.").arg(name)
                           : tr("The function \"%1\" has failed: %2").arg(name, reason)};
}

HostAnswer<Curve> HostCurves::curveFrom(const char* function,
                                        std::vector<UserArgument> operands) const {
  const auto [result, fault] = resultOf(function, std::move(operands));
  if (!fault.isEmpty())
    return {{}, fault};
  if (result.type != UserReal || result.count == 0 || !result.data || !result.reference)
    return {{}, tr("The function \"%1\" has not given a curve.").arg(QLatin1String(function))};
  const auto* y = static_cast<const double*>(result.data);
  const auto* x = static_cast<const double*>(result.reference);
  return {{{x, x + result.count}, {y, y + result.count}}, {}};
}

HostAnswer<Curve> HostCurves::resampled(const Curve& curve) const {
  const std::vector<double> count{sampleCount};
  const std::vector<double> order{1.0};
  const std::vector<double> grid{(curve.x.back() - curve.x.front()) / sampleCount, 0.0};
  return curveFrom("interp", {operand(curve), operand(count), operand(order), operand(grid)});
}

HostAnswer<std::optional<double>> HostCurves::valueAt(double x, const Curve& curve) const {
  const std::vector<double> place{x};
  const std::vector<double> order{1.0};
  const auto [result, fault] = resultOf("YFromX", {operand(curve), operand(place), operand(order)});
  if (!fault.isEmpty())
    return {{}, fault};
  if (result.type != UserReal)
    return {{}, tr("The function \"%1\" has not given a number.").arg(QLatin1String("YFromX"))};
  if (result.count == 0 || !result.data)
    return {std::nullopt, {}};
  return {*static_cast<const double*>(result.data), {}};
}

HostAnswer<Curve> HostCurves::integral(const Curve& curve) const {
  return curveFrom("integ", {operand(curve)});
}

HostAnswer<Curve> HostCurves::fitted(const Curve& curve, double segments,
                                     EnergyStorage kind) const {
  const std::vector<double> count{segments};
  QByteArray text = energyStorages.word(kind);
  char* word = text.data();
  return curveFrom("PWLCurveFit", {operand(curve), operand(count), operand(&word)});
}
