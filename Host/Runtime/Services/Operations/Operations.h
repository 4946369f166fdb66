#pragma once

#include "Call/Provider.h"

// The operations of the support library that this host stands behind, each with the name by which
// it is provided and the host's own provider.

inline constexpr const char* parseLaplaceName = "sp_ParseLaplaceExpression";
inline constexpr const char* checkLaplaceName = "laplace_CheckLaplaceExpression";
/// The text of the expression: what the checker says of it, 5 where it is none for a lumped
/// network. The parser's status is the same number.
CallResult ownLaplaceCode(const std::vector<ScriptVector>& arguments);

inline constexpr const char* fourierTimeName = "sp_EstimateFourierCalculationTime";
/// Seconds of one elementary step, measured at the first call.
CallResult ownFourierTime(const std::vector<ScriptVector>& arguments);

/// Lets the support library ask the providers from now on.
void serveOperations();
