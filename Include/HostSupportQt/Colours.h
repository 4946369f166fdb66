#pragma once

#include "HostSupportQt/Export.h"

#include <QColor>

/// How well two colours can be told apart, from 1 (not at all) to 21 (black on white); text needs
/// 4.5. The order does not matter.
HOSTSUPPORTQT_EXPORT double sp_Contrast(const QColor& a, const QColor& b);

/// The first colour with `share` of the second, from 0 to 1, in it.
HOSTSUPPORTQT_EXPORT QColor sp_MixedColour(const QColor& a, const QColor& b, double share);

/// The contrasts that text and that lines and areas need.
constexpr double sp_readableContrast = 4.5;
constexpr double sp_visibleContrast = 2.5;

/// The colour, or where it is lost on this ground the first one on its way to white or black that
/// has the contrast, or nearly has it.
HOSTSUPPORTQT_EXPORT QColor sp_SeenColour(const QColor& colour, const QColor& ground,
                                          double contrast = sp_visibleContrast);

/// The colour of what is wrong, in every dialog: a red that can be read on this ground, or black or
/// white where no red can.
HOSTSUPPORTQT_EXPORT QColor sp_WrongColour(const QColor& ground);
