#pragma once

#include "HostSupportQt/Export.h"

#include <QString>

/// Whether a message of Qt only tells of limits that the platform is known to have: of windows that
/// nobody sees, of a session without a runtime folder, or of a font without some script. Any other
/// warning is a finding.
HOSTSUPPORTQT_EXPORT bool qtsp_IsPlatformNoise(const QString& message);

/// Keeps such messages from the message handler that is installed now.
HOSTSUPPORTQT_EXPORT void qtsp_DropPlatformNoise();
