#include "Services/Operations/Operations.h"

#include "HostSupport/DomainServices.h"
#include "Services/Entries/EntryCall.h"

namespace {

void parseLaplace(XSpiceParseLaplaceArgs* args) {
  asEntry([&] { args->status = askForInteger(parseLaplaceName, textArgument(args->expression)); });
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

CallResult ownParseLaplace(const std::vector<ScriptVector>&) {
  throw CallError(QStringLiteral("%1: this host has no reader of Laplace expressions yet")
                      .arg(QLatin1String(parseLaplaceName)));
}

CallResult ownCheckLaplace(const std::vector<ScriptVector>&) {
  return {};
}
