#include "Core/Generic/FieldDefinition.h"
#include "Core/Frame/Integers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr FieldKind R = FieldKind::Real;
constexpr FieldKind I = FieldKind::Integer;
constexpr FieldKind F = FieldKind::Flag;
constexpr FieldKind T = FieldKind::Text;
constexpr FieldKind C = FieldKind::Choice;

} // namespace

TEST(FieldDefinition, TypeWordsAndLimits) {
  const struct {
    const char* text;
    const char* label;
    FieldKind kind;
    double min, max, step;
  } cases[] = {
      {"R1", "R1", R, -1e100, 1e100, 0},
      {"", "", R, -1e100, 1e100, 0},
      {nullptr, "", R, -1e100, 1e100, 0},
      {"R1:REAL:1|10k", "R1", R, 1, 10e3, 0},
      {"R1::|2Meg|5", "R1", R, -1e100, 2e6, 5},
      {"R1::-1u||-5", "R1", R, -1e-6, 1e100, 0},
      {"N:integer", "N", I, 0, 2147483647, 0},
      {"N:Int:-3|8|2", "N", I, -3, 8, 2},
      {"N:int:|8", "N", I, 0, 8, 0},
      {"N:int:nonsense", "N", I, 0, 2147483647, 0},
      {" L :real", " L ", R, -1e100, 1e100, 0},
      {"E:real:0|1e400", "E", R, 0, std::numeric_limits<double>::infinity(), 0},
  };
  for (const auto& c : cases) {
    const char* shown = c.text ? c.text : "(null)";
    const FieldDefinition field = readFieldDefinition(c.text);
    EXPECT_STREQ(field.label.c_str(), c.label) << shown;
    EXPECT_EQ(field.kind, c.kind) << shown;
    EXPECT_EQ(field.min, c.min) << shown;
    EXPECT_EQ(field.max, c.max) << shown;
    EXPECT_EQ(field.step, c.step) << shown;
  }
  EXPECT_EQ(readFieldDefinition("f:BOOL").kind, F);
  EXPECT_EQ(readFieldDefinition("t:String").kind, T);
  EXPECT_EQ(readFieldDefinition("t:colour").kind, T);
  const FieldDefinition list = readFieldDefinition("Ratio:list:1:1|1:10");
  EXPECT_EQ(list.kind, C);
  EXPECT_STREQ(list.items.c_str(), "1:1|1:10");
}

TEST(FieldDefinition, InitialValues) {
  for (const char* on : {"true", "TRUE", "1", "-1", "2x", " 3", "99999999999"})
    EXPECT_TRUE(initialFlag(on)) << on;
  for (const char* off :
       {"false", "False", "0", "", "0.5", "yes", static_cast<const char*>(nullptr)})
    EXPECT_FALSE(initialFlag(off)) << (off ? off : "(null)");

  const struct {
    const char* text;
    double index;
  } choices[] = {
      {"trap", 3},           // the last of two
      {"gear", 1}, {"2", 4}, // a text comes before a number
      {"1", 1},    {"7", 7}, {"", 0}, {"nonsense", 0}, {nullptr, 0},
  };
  for (const auto& c : choices)
    EXPECT_EQ(initialChoice("Trap|Gear|Euler|TRAP|2", c.text), c.index)
        << (c.text ? c.text : "(null)");
}

TEST(FieldGrid, ColumnsAndRowsOfAGroup) {
  const struct {
    int fields, columns, rows;
  } cases[] = {{1, 1, 1},  {5, 1, 5},  {6, 2, 3},     {9, 2, 5},      {13, 2, 7},
               {14, 3, 5}, {24, 4, 6}, {150, 10, 15}, {1000, 10, 100}};
  for (const auto& c : cases) {
    const FieldGrid grid =
        arrangeFields(std::vector<FieldKind>(static_cast<std::size_t>(c.fields), R));
    EXPECT_EQ(grid.columns, 2 * c.columns) << c.fields;
    EXPECT_EQ(grid.places.back().row + 1, c.rows) << c.fields;
    EXPECT_TRUE(grid.lines.empty());
  }
  EXPECT_EQ(arrangeFields({}).columns, 0);
}

TEST(FieldGrid, GroupsStandBelowEachOther) {
  // Nine numbers and two flags, then a choice; the flags were defined first.
  const FieldGrid grid = arrangeFields({F, C, R, R, I, R, R, R, I, R, F, R});
  const int expected[][3] = {{2, 0, 0}, {3, 0, 2}, {4, 1, 0},  {5, 1, 2}, {6, 2, 0},  {7, 2, 2},
                             {8, 3, 0}, {9, 3, 2}, {11, 4, 0}, {0, 6, 0}, {10, 7, 0}, {1, 9, 0}};
  ASSERT_EQ(grid.places.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(grid.places[i].field, expected[i][0]) << i;
    EXPECT_EQ(grid.places[i].row, expected[i][1]) << i;
    EXPECT_EQ(grid.places[i].column, expected[i][2]) << i;
  }
  EXPECT_EQ(grid.lines, (std::vector<int>{5, 8}));
  EXPECT_EQ(grid.columns, 4);
  // A group without fields has no line.
  EXPECT_EQ(arrangeFields({T, C}).lines, std::vector<int>{1});
}

TEST(Integers, BeyondTheRange) {
  constexpr int most = std::numeric_limits<int>::max();
  EXPECT_EQ(leadingInteger(" -12ms"), -12);
  EXPECT_EQ(leadingInteger("99999999999999999999"), most);
  EXPECT_EQ(leadingInteger(nullptr), 0);
  EXPECT_EQ(leadingWord("4294967173"), -123) << "each bit of a word counts";
  EXPECT_EQ(leadingWord(" -123;"), -123);
  EXPECT_EQ(leadingWord("+36893488147419103237"), 5) << "2^65 + 5";
  EXPECT_EQ(leadingWord("-"), 0);
  EXPECT_EQ(leadingWord(nullptr), 0);
  EXPECT_EQ(truncatedToInt(-2.9), -2);
  EXPECT_EQ(truncatedToInt(1e300), most);
  EXPECT_EQ(truncatedToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}
