#pragma once

#include "HostSupportQt/Export.h"

#include <QColor>

/// How well two colours can be told apart, from 1 (not at all) to 21 (black on white); text needs
/// 4.5. The order does not matter.
HOSTSUPPORTQT_EXPORT double sp_Contrast(const QColor& a, const QColor& b);

/// The colour of what is wrong, in every dialog: a red that can be read on this ground, or black or
/// white where no red can.
HOSTSUPPORTQT_EXPORT QColor sp_WrongColour(const QColor& ground);
