#include "Core/Pieces/ColumnWidths.h"

#include <gtest/gtest.h>

TEST(ColumnWidths, OnlyWidthsThatAColumnCanHaveAreRead) {
  const std::vector<int> none;
  const struct {
    const char* text;
    int count;
    std::vector<int> widths;
  } cases[] = {
      {"120 8 10000", 3, {120, 8, 10000}},
      {" 120   90 ", 2, {120, 90}},
      {"120 90", 3, none},
      {"120 90 80 70", 3, none},
      {"120 7", 2, none},
      {"120 10001", 2, none},
      {"120 -90", 2, none},
      {"120 99999999999999999999", 2, none},
      {"120 nan", 2, none},
      {"120 90px", 2, none},
      {"120 9e1", 2, none},
      {"120,90", 2, none},
      {"\xff\xfe 90", 2, none},
      {"", 2, none},
      {nullptr, 2, none},
      {"", 0, none},
  };
  for (const auto& c : cases)
    EXPECT_EQ(readColumnWidths(c.text, c.count), c.widths) << (c.text ? c.text : "null");
  EXPECT_EQ(readColumnWidths(writeColumnWidths({120, 8, 10000}), 3),
            (std::vector<int>{120, 8, 10000}));
}
