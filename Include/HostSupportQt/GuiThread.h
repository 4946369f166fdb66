#pragma once

#include "HostSupportQt/Export.h"

class QWidget;

// Widgets, fonts and pictures want a `QApplication`, and its thread. Qt ends the process of a host
// that forgets it; what asks here first tells the host instead.

/// Whether widgets may be used here. Where they may not, says why through the message sink, after
/// `caller`, the name of the function or class.
HOSTSUPPORTQT_EXPORT bool sp_IsGuiThread(const char* caller);
/// The same, but raises a `KelvarinException` with the reason.
HOSTSUPPORTQT_EXPORT void sp_NeedGuiThread(const char* caller);
/// `parent`, once `sp_NeedGuiThread` has let it pass: for the base of a widget, which Qt makes
/// before all else.
HOSTSUPPORTQT_EXPORT QWidget* sp_GuiParent(QWidget* parent, const char* caller);
