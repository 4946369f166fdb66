#pragma once

#include "HostSupport/Export.h"
#include "XSpiceParseLaplaceArgs.h"

// Operations whose answers are a host's own affair: who loads this library says who gives them.

/// Settles whether a lumped network can have the expression, and its coefficients; the record is as
/// it was where no host answers. May raise `KelvarinException`.
HOSTSUPPORT_EXPORT void sp_ParseLaplaceExpression(XSpiceParseLaplaceArgs* args);

/// What the checker library of the host's devices folder gives as `laplace_CheckLaplaceExpression`:
/// a code, -1 where there is nobody to check. Null counts as empty. May raise `KelvarinException`.
HOSTSUPPORT_EXPORT int sp_CheckLaplaceExpression(const char* expression);

/// Seconds of one elementary step of a Fourier calculation on this machine; 0 where it is not
/// known. Cheap enough for every keystroke. May raise `KelvarinException`.
HOSTSUPPORT_EXPORT void sp_EstimateFourierCalculationTime(double* seconds);

/// Who answers for the host (host only); null for nobody.
struct DomainServices {
  void (*parseLaplaceExpression)(XSpiceParseLaplaceArgs*) = nullptr;
  int (*checkLaplaceExpression)(const char*) = nullptr;
  void (*estimateFourierCalculationTime)(double*) = nullptr;
};
HOSTSUPPORT_EXPORT void sp_SetDomainServices(const DomainServices& services);
