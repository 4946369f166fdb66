#pragma once

#include "HostSupport/YString.h"

#include <cstdint>

/// A font as scripts and options keep it, in a text of seven fields: point size, flags for bold,
/// italic, underline and strike-out, colour, family.
struct FontSpec {
  int pointSize = 0; ///< 0 where the text does not say; never negative
  bool isBold = false;
  bool isItalic = false;
  bool isUnderlined = false;
  bool isStruckOut = false;
  std::int64_t colour = 0; ///< red in the low byte, then green and blue; carried as it stands
  YString family;          ///< up to an apostrophe
};

/// Whether a text is to be read as a font, and not as the name of one.
bool isFontSpec(const char* text);

/// Reads a font whose fields stand between semicolons or, where there are none, between blanks.
/// What stands behind the first field that cannot be read is left out. Null counts as empty.
FontSpec readFontSpec(const char* text);

/// The fields between semicolons, flags as 1 and 0.
YString writeFontSpec(const FontSpec& font);
