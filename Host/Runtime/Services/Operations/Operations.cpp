#include "Services/Operations/Operations.h"

#include "HostSupport/DomainServices.h"
#include "HostSupport/LaplaceExpression.h"
#include "Services/Entries/EntryCall.h"

#include <algorithm>

namespace {

constexpr int needsConvolution = 5; ///< acceptable, though no lumped network can have it

/// What the checker says of a text, and the parser, to whom only 0 is good.
int laplaceCode(const char* text) {
  const LaplaceExpression expression(text);
  if (expression.fault() != LaplaceFault::None)
    return int(expression.fault());
  return expression.isRational() ? 0 : needsConvolution;
}

void copyCoefficients(const std::vector<double>& from, double* to, std::int32_t* count) {
  std::copy(from.begin(), from.end(), to);
  *count = std::int32_t(from.size());
}

void parseLaplace(XSpiceParseLaplaceArgs* args) {
  args->status =
      asEntry([&] { return askForInteger(parseLaplaceName, textArgument(args->expression)); });
  const LaplaceExpression expression(args->status == 0 ? args->expression : "");
  if (!expression.isRational() || !args->firstCoefficients || !args->secondCoefficients)
    return;
  copyCoefficients(expression.numerator(), args->firstCoefficients, &args->firstCount);
  copyCoefficients(expression.denominator(), args->secondCoefficients, &args->secondCount);
}

int checkLaplace(const char* expression) {
  constexpr int noChecker = -1;
  return asEntry([&] {
    if (!hasProvider(checkLaplaceName))
      return noChecker;
    const CallResult answer = askProvider(checkLaplaceName, textArgument(expression));
    return answer.made() ? integerOf(checkLaplaceName, answer) : noChecker;
  });
}

void estimateFourierTime(double* seconds) {
  *seconds = asEntry([] { return askForNumber(fourierTimeName, {}); });
}

} // namespace

void serveOperations() {
  DomainServices services;
  services.parseLaplaceExpression = parseLaplace;
  services.checkLaplaceExpression = checkLaplace;
  services.estimateFourierCalculationTime = estimateFourierTime;
  sp_SetDomainServices(services);
}

CallResult ownLaplaceCode(const std::vector<ScriptVector>& arguments) {
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = {double(laplaceCode(Tocs(textOf(arguments))))};
  return result;
}
