#pragma once

#include <cstdint>

/// Where the attributes that are not numbers stand in a property's flags.
enum PropertyBit {
  HiddenBit = 6,
  ProtectedBit = 7,
  AbsoluteBit = 8,
  SelectableBit = 10,
  VerticalBit = 14,
  ShowsNameBit = 15,
  ResolvesSymbolicBit = 16,
  StaysHiddenBit = 22,
};

/// The attributes that a schematic keeps of a property, or of a symbol pin, in one word: its flags.
struct PropertyAttributes {
  int horizontal = 0; ///< justification code, 0 to 3; the schematic's, as is the vertical one
  int vertical = 0;   ///< justification code, 0 to 3
  int fontStyle = 0;  ///< index of a style, 0 to 7
  bool isAbsolute = false;
  bool isHidden = false;
  bool isProtected = false;
  bool isSelectable = false;
  bool isVertical = false;
  bool showsName = false;
  bool resolvesSymbolic = false;
  bool staysHidden = false; ///< is hidden, and nobody may change that
};

PropertyAttributes readPropertyFlags(std::int32_t flags);

/// The flags with these attributes in their places, and marked as having a font style; all other
/// bits stay as they are. Of a number that is too large, or negative, the low bits are kept.
std::int32_t writePropertyFlags(std::int32_t flags, const PropertyAttributes& attributes);

/// The flags of a property that a box has shown as `shown` and left as `made`: what the user did
/// not touch keeps the bits of `passed`, even where the box cannot show them.
std::int32_t keepUntouched(std::int32_t passed, std::int32_t shown, std::int32_t made,
                           bool hasNewFontStyle);

/// The two justification codes as the row of a list that goes through the horizontal ones first,
/// three to a vertical one. Codes beyond the `rows` of the list give its last one.
int justificationRow(const PropertyAttributes& attributes, int rows);
void setJustificationRow(PropertyAttributes* attributes, int row);
