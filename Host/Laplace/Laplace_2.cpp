// The checker of Laplace expressions, as a library of the host's devices folder: modules search it
// by its name and load it. Who checks is the host's affair.

#include "HostSupport/DomainServices.h"

/// A code: 0 and 5 acceptable, 1 syntax, 2 parentheses, 4 an unknown function, 6 a value that
/// cannot be; -1 where there is nobody to check.
extern "C" Q_DECL_EXPORT int laplace_CheckLaplaceExpression(const char* expression) {
  return sp_CheckLaplaceExpression(expression);
}
