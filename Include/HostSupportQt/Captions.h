#pragma once

#include "HostSupportQt/Export.h"

#include <QString>

/// A caption as the user reads it: without the marks of mnemonics.
HOSTSUPPORTQT_EXPORT QString plainCaption(const QString& caption);
