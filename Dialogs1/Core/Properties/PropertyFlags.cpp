#include "Core/Properties/PropertyFlags.h"

#include <algorithm>

namespace {

constexpr struct {
  int PropertyAttributes::*attribute;
  int lowestBit;
  std::uint32_t largest;
} numbers[] = {
    {&PropertyAttributes::horizontal, 0, 3},
    {&PropertyAttributes::vertical, 3, 3},
    {&PropertyAttributes::fontStyle, 11, 7},
};

constexpr struct {
  bool PropertyAttributes::*attribute;
  PropertyBit bit;
} switches[] = {
    {&PropertyAttributes::isHidden, HiddenBit},
    {&PropertyAttributes::isProtected, ProtectedBit},
    {&PropertyAttributes::isAbsolute, AbsoluteBit},
    {&PropertyAttributes::isSelectable, SelectableBit},
    {&PropertyAttributes::isVertical, VerticalBit},
    {&PropertyAttributes::showsName, ShowsNameBit},
    {&PropertyAttributes::resolvesSymbolic, ResolvesSymbolicBit},
    {&PropertyAttributes::staysHidden, StaysHiddenBit},
};

constexpr std::uint32_t fontStyleIsValid = 1U << 9;
// What the user sets together: where the text stands, and its font style.
constexpr std::uint32_t placeBits = 1U << AbsoluteBit | 3U << 3 | 3U;
constexpr std::uint32_t fontStyleBits = fontStyleIsValid | 7U << 11;
constexpr int horizontalCodes = 3; // a fourth would fit the bits, but has no place in the list

} // namespace

PropertyAttributes readPropertyFlags(std::int32_t flags) {
  const auto word = static_cast<std::uint32_t>(flags);
  PropertyAttributes attributes;
  for (const auto& number : numbers)
    attributes.*number.attribute = static_cast<int>(word >> number.lowestBit & number.largest);
  for (const auto& one : switches)
    attributes.*one.attribute = word >> one.bit & 1U;
  return attributes;
}

std::int32_t writePropertyFlags(std::int32_t flags, const PropertyAttributes& attributes) {
  auto word = static_cast<std::uint32_t>(flags) | fontStyleIsValid;
  for (const auto& number : numbers) {
    word &= ~(number.largest << number.lowestBit);
    word |= (static_cast<std::uint32_t>(attributes.*number.attribute) & number.largest)
            << number.lowestBit;
  }
  for (const auto& one : switches) {
    word &= ~(1U << one.bit);
    word |= std::uint32_t{attributes.*one.attribute} << one.bit;
  }
  return static_cast<std::int32_t>(word);
}

std::int32_t keepUntouched(std::int32_t passed, std::int32_t shown, std::int32_t made,
                           bool hasNewFontStyle) {
  auto touched = static_cast<std::uint32_t>(shown) ^ static_cast<std::uint32_t>(made);
  if (touched & placeBits)
    touched |= placeBits;
  if (hasNewFontStyle || touched & fontStyleBits)
    touched |= fontStyleBits;
  return static_cast<std::int32_t>((static_cast<std::uint32_t>(passed) & ~touched) |
                                   (static_cast<std::uint32_t>(made) & touched));
}

int justificationRow(const PropertyAttributes& attributes, int rows) {
  return std::min(attributes.horizontal + horizontalCodes * attributes.vertical, rows - 1);
}

void setJustificationRow(PropertyAttributes* attributes, int row) {
  attributes->vertical = row / horizontalCodes;
  attributes->horizontal = row % horizontalCodes;
}
