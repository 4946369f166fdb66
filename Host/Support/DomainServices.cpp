#include "HostSupport/DomainServices.h"

namespace {

DomainServices services;

} // namespace

void sp_SetDomainServices(const DomainServices& given) {
  services = given;
}

void sp_ParseLaplaceExpression(XSpiceParseLaplaceArgs* args) {
  if (args && services.parseLaplaceExpression)
    services.parseLaplaceExpression(args);
}

int sp_CheckLaplaceExpression(const char* expression) {
  return services.checkLaplaceExpression
             ? services.checkLaplaceExpression(expression ? expression : "")
             : -1;
}

void sp_EstimateFourierCalculationTime(double* seconds) {
  if (!seconds)
    return;
  *seconds = 0;
  if (services.estimateFourierCalculationTime)
    services.estimateFourierCalculationTime(seconds);
}
