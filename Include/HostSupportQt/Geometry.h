#pragma once

#include "HostSupport/YString.h"
#include "HostSupportQt/Export.h"

class QWidget;

// A window's size and place go by `key`, or by its object name where the key is empty. They are
// kept as plain numbers, both without the frame, and restored only to where a screen is.

HOSTSUPPORTQT_EXPORT void sp_SaveWidgetDims(QWidget* widget, const YString& key);
/// False where nothing usable is stored; the widget is then left alone.
HOSTSUPPORTQT_EXPORT bool sp_RestoreWidgetDims(QWidget* widget, const YString& key);
/// The widget restores its geometry when first shown and saves it when hidden, from now on.
HOSTSUPPORTQT_EXPORT void sp_AutoSaveDialogDims(QWidget* widget);
