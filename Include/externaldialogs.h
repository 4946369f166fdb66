#pragma once

#include "DynFunc.h"
#include "HostSupport/Containers.h"
#include "HostSupport/YString.h"

class QWidget;

/// Lets the user edit a list of values in place; false where it stands as it was.
inline constexpr DynEntry<bool(QWidget* parent, YArray<YString>* values)> dyn_OpenListDialog{
    "dyn_OpenListDialog", "Include/externaldialogs", 45};
