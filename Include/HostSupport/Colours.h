#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

/// Reads a colour, packed with red in the low byte (0xBBGGRR): from "#rgb", "#rrggbb", "#rrrgggbbb"
/// or "#rrrrggggbbbb", from "#aarrggbb" without its transparency, from a name of the web's ("light
/// blue", in any letter case), or from the packed number. False, with `colour` untouched, where the
/// text is none of these.
HOSTSUPPORT_EXPORT bool sp_ReadColour(const YString& text, int* colour);
