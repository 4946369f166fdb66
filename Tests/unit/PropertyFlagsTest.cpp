#include "Core/Properties/PropertyFlags.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

namespace {

constexpr std::int32_t hasFontStyle = 1 << 9;
constexpr int rowsOnOffer = 12;

std::int32_t changed(std::int32_t flags, const std::function<void(PropertyAttributes&)>& change) {
  PropertyAttributes attributes = readPropertyFlags(flags);
  change(attributes);
  return writePropertyFlags(flags, attributes);
}

std::vector<std::int32_t> manyWords() {
  std::vector<std::int32_t> words = {0, -1, std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min()};
  const unsigned seed = std::random_device{}();
  ::testing::Test::RecordProperty("seed", static_cast<int>(seed));
  std::mt19937 random(seed);
  for (int i = 0; i < 20000; ++i)
    words.push_back(static_cast<std::int32_t>(random()));
  return words;
}

} // namespace

TEST(PropertyFlags, EveryWordComesBack) {
  for (const std::int32_t word : manyWords())
    ASSERT_EQ(changed(word, [](PropertyAttributes&) {}), word | hasFontStyle) << word;
}

TEST(PropertyFlags, AnAttributeHasItsBitsAndNoOthers) {
  const struct {
    std::function<void(PropertyAttributes&)> change;
    std::uint32_t cleared;
    std::uint32_t set;
  } cases[] = {
      {[](auto& a) { a.horizontal = 2; }, 0x3, 0x2},
      {[](auto& a) { a.vertical = 1; }, 0x18, 0x8},
      {[](auto& a) { a.isHidden = true; }, 0, 0x40},
      {[](auto& a) { a.isHidden = false; }, 0x40, 0},
      {[](auto& a) { a.isProtected = true; }, 0, 0x80},
      {[](auto& a) { a.isProtected = false; }, 0x80, 0},
      {[](auto& a) { a.isAbsolute = true; }, 0, 0x100},
      {[](auto& a) { a.isAbsolute = false; }, 0x100, 0},
      {[](auto& a) { a.isSelectable = true; }, 0, 0x400},
      {[](auto& a) { a.isSelectable = false; }, 0x400, 0},
      {[](auto& a) { a.fontStyle = 5; }, 0x3800, 0x2800},
      {[](auto& a) { a.fontStyle = -1; }, 0, 0x3800}, // none of the styles on offer
      {[](auto& a) { a.fontStyle = 9; }, 0x3800, 0x800},
      {[](auto& a) { a.isVertical = true; }, 0, 0x4000},
      {[](auto& a) { a.isVertical = false; }, 0x4000, 0},
      {[](auto& a) { a.showsName = true; }, 0, 0x8000},
      {[](auto& a) { a.showsName = false; }, 0x8000, 0},
      {[](auto& a) { a.resolvesSymbolic = true; }, 0, 0x10000},
      {[](auto& a) { a.resolvesSymbolic = false; }, 0x10000, 0},
      {[](auto& a) { a.staysHidden = true; }, 0, 0x400000},
  };
  const std::vector<std::int32_t> words = manyWords();
  for (const auto& c : cases)
    for (const std::int32_t word : words) {
      const auto expected = (static_cast<std::uint32_t>(word) & ~c.cleared) | c.set;
      ASSERT_EQ(changed(word, c.change), static_cast<std::int32_t>(expected) | hasFontStyle)
          << "case " << &c - cases << ", word " << word;
    }
}

TEST(PropertyFlags, WhatIsNotTouchedKeepsItsBits) {
  const struct {
    std::int32_t passed, shown, made;
    bool hasNewFontStyle;
    std::int32_t kept;
  } cases[] = {
      {0x2400, 0x600, 0x600, false, 0x2400}, {0x2400, 0x600, 0xe00, false, 0xe00},
      {0x2400, 0x600, 0x600, true, 0x600},   {0x2400, 0x600, 0x640, false, 0x2440},
      {0x103, 0x308, 0x308, false, 0x103},   {0x103, 0x308, 0x200, false, 0},
      {-1, -1, ~0x80, false, ~0x80},
  };
  for (const auto& c : cases)
    EXPECT_EQ(keepUntouched(c.passed, c.shown, c.made, c.hasNewFontStyle), c.kept) << c.made;
}

TEST(PropertyFlags, JustificationIsARowOfTheList) {
  for (int row = 0; row < rowsOnOffer; ++row) {
    PropertyAttributes attributes;
    setJustificationRow(&attributes, row);
    EXPECT_LT(attributes.horizontal, 3);
    EXPECT_LT(attributes.vertical, 4);
    EXPECT_EQ(justificationRow(attributes, rowsOnOffer), row);
  }
  const struct {
    std::int32_t flags;
    int row;
  } cases[] = {{0x00, 0},  {0x02, 2},  {0x08, 3}, {0x0a, 5},  {0x03, 3},
               {0x1a, 11}, {0x1b, 11}, {-1, 11},  {0x1e4, 0}, {0x10, 6}};
  for (const auto& c : cases)
    EXPECT_EQ(justificationRow(readPropertyFlags(c.flags), rowsOnOffer), c.row) << c.flags;
}
