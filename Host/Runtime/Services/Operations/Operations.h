#pragma once

#include "Call/Provider.h"

// The operations of the support library that this host stands behind, each with the name by which
// it is provided and the host's own provider.

inline constexpr const char* parseLaplaceName = "sp_ParseLaplaceExpression";
/// The text of the expression: the status.
CallResult ownParseLaplace(const std::vector<ScriptVector>& arguments);

inline constexpr const char* checkLaplaceName = "laplace_CheckLaplaceExpression";
/// The text of the expression: the code; none, since the host has no checker library.
CallResult ownCheckLaplace(const std::vector<ScriptVector>& arguments);

inline constexpr const char* fourierTimeName = "sp_EstimateFourierCalculationTime";
/// Seconds of one elementary step, measured at the first call.
CallResult ownFourierTime(const std::vector<ScriptVector>& arguments);

/// Lets the support library ask the providers from now on.
void serveOperations();
