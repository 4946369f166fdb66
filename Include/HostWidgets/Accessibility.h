#pragma once

#include "HostWidgets/Export.h"

/// From now on fields have names and values for those who hear them, and one that is off, or only
/// to be read, takes nothing from a reader. Qt asks once what a widget is, and keeps the answer:
/// called before the first one is made. Once in a process; needs the application.
HOSTWIDGETS_EXPORT void installFieldAccessibility();
