#include "Core/Pieces/FontSpec.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

YString rewritten(const char* text) {
  return writeFontSpec(readFontSpec(text));
}

} // namespace

TEST(FontSpec, ReadsBothFormsAndWritesSemicolons) {
  const struct {
    const char* text;
    const char* written;
  } cases[] = {
      {"12;1;0;1;0;255;Arial", "12;1;0;1;0;255;Arial"},
      {"12 0 1 0 1 65280 DejaVu Sans Mono", "12;0;1;0;1;65280;DejaVu Sans Mono"},
      {"-12;0;0;0;0;0;Arial", "12;0;0;0;0;0;Arial"},
      {"-2147483648;0;0;0;0;0;Arial", "2147483647;0;0;0;0;0;Arial"},
      {"99999999999;0;0;0;0;0;Arial", "2147483647;0;0;0;0;0;Arial"},
      {"9;2;-1;7;0;0;Arial", "9;1;1;1;0;0;Arial"},
      {"9;0;0;0;0;0; Arial ", "9;0;0;0;0;0; Arial "},
      {"9  0\t0 0 0 0   Arial ", "9;0;0;0;0;0;Arial "},
      {"9;0;0;0;0;0;Arial'bold", "9;0;0;0;0;0;Arial"},
      {"9;0;0;0;0;0;A;B", "9;0;0;0;0;0;A;B"},
      {"9;0;0;0;0;0;µ 電圧", "9;0;0;0;0;0;µ 電圧"},
      {"9; 1;\t1;0;0;0;Arial", "9;1;1;0;0;0;Arial"},
      // Bits above the three colours are somebody else's, and stay.
      {"9;0;0;0;0;4278255360;Arial", "9;0;0;0;0;4278255360;Arial"},
      {"9;0;0;0;0;-1;Arial", "9;0;0;0;0;-1;Arial"},
      // What stands behind the first field that is none is left out.
      {"9", "9;0;0;0;0;0;"},
      {"9;1", "9;1;0;0;0;0;"},
      {"9;1;x;1;1;5;Arial", "9;1;0;0;0;0;"},
      {"9 ;1;1;1;1;5;Arial", "9;0;0;0;0;0;"},
      {"9;1;1;1;1;5,Arial", "9;1;1;1;1;5;"},
      {"9 1 0 0 0 5 A;B", "9;0;0;0;0;0;"},
      {"9;;1;1;1;5;Arial", "9;0;0;0;0;0;"},
      {"-", "0;0;0;0;0;0;"},
      {"", "0;0;0;0;0;0;"},
      {nullptr, "0;0;0;0;0;0;"},
  };
  for (const auto& c : cases) {
    EXPECT_STREQ(rewritten(c.text), c.written) << (c.text ? c.text : "(null)");
    EXPECT_STREQ(rewritten(c.written), c.written);
  }
}

TEST(FontSpec, EveryWordComesBack) {
  for (int flags = 0; flags < 16; ++flags)
    for (const std::int64_t colour :
         {std::int64_t{0}, std::int64_t{0xff}, std::int64_t{0xffffff},
          std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
      for (const int size : {0, 1, 72, std::numeric_limits<int>::max()}) {
        FontSpec font;
        font.pointSize = size;
        font.isBold = flags & 1;
        font.isItalic = flags & 2;
        font.isUnderlined = flags & 4;
        font.isStruckOut = flags & 8;
        font.colour = colour;
        font.family = "Nimbus Mono";
        const FontSpec read = readFontSpec(writeFontSpec(font));
        EXPECT_EQ(read.pointSize, size);
        EXPECT_EQ(read.isBold, font.isBold);
        EXPECT_EQ(read.isItalic, font.isItalic);
        EXPECT_EQ(read.isUnderlined, font.isUnderlined);
        EXPECT_EQ(read.isStruckOut, font.isStruckOut);
        EXPECT_EQ(read.colour, colour);
        EXPECT_TRUE(read.family == font.family);
      }
}

TEST(FontSpec, NamesAreToldFromFonts) {
  for (const char* font : {"9;0", "-9 0", "0", "-", "9Arial"})
    EXPECT_TRUE(isFontSpec(font)) << font;
  for (const char* name : {"", " 9;0", "+9", "Standard", "٣", static_cast<const char*>(nullptr)})
    EXPECT_FALSE(isFontSpec(name)) << (name ? name : "(null)");
}
