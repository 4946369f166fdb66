#include "Core/Pwl/PwlPoints.h"
#include "Core/Pieces/CellBlock.h"
#include "Core/Pwl/ConversionMemory.h"

#include <gtest/gtest.h>

#include <random>

static PwlPoints curve(const char* text) {
  return pointsInText(QString::fromUtf8(text));
}

static std::string textOf(const PwlPoints& points) {
  return textOfPoints(points).toStdString();
}

TEST(PwlPoints, AreReadInPairs) {
  EXPECT_EQ(textOf(curve("1 2 3")), "1 2");
  EXPECT_EQ(textOf(curve("(1,2)\r\n(3;x,{a*b})\n,,\t")), "1 2 3;x {a*b}");
  EXPECT_EQ(textOf(curve(" ,() \n")), "");
}

TEST(PwlPoints, CellsAreNumbersOrExpressions) {
  struct Case {
    const char* text;
    bool arbitrary;
    bool symmetric;
  };
  const Case cases[] = {{"1k", true, true},   {"+1", true, true},        {".1", true, true},
                        {"-1", true, false},  {"{a}", true, true},       {"{a} ", true, true},
                        {"{a", false, false}, {"a}", false, false},      {"", false, false},
                        {" ", false, false},  {"\xc2\xbc", false, false}};
  for (const Case& each : cases) {
    const QString text = QString::fromUtf8(each.text);
    EXPECT_EQ(isValidCell(text, true), each.arbitrary) << each.text;
    EXPECT_EQ(isValidCell(text, false), each.symmetric) << each.text;
  }
}

TEST(PwlPoints, SymmetryIsOneOfTexts) {
  const std::pair<const char*, bool> cases[] = {
      {"-1 -2 1 2", true},
      {"-1 -2 0 0 1 2", true},
      {"-1 -2 7 8 1 2", true}, // nobody looks at the middle
      {"{-a} {-b} {a} {b}", true},
      {"-{a} {-b} {a} {b}", true},
      {"-1 -2 1 2.0", false},
      {"-1 2 1 2", false},
      {"-2 -2 -1 -1 1 1 3 3", false},
      {"0 0", false},
      {"", false},
  };
  for (const auto& [text, symmetric] : cases)
    EXPECT_EQ(isSymmetric(curve(text)), symmetric) << text;
}

TEST(PwlPoints, TheFirstQuadrantLeavesTheOriginOut) {
  EXPECT_EQ(textOf(firstQuadrant(curve("-1 -2 1 2"))), "1 2");
  EXPECT_EQ(textOf(firstQuadrant(curve("-1 -2 0 0 1 2"))), "1 2");
  EXPECT_EQ(textOf(firstQuadrant(curve("-1 -2 0 3 1 2"))), "0 3 1 2");
  EXPECT_EQ(textOf(withMirrorImage(curve("1 {x} +2 4"))), "-+2 -4 -1 {-x} 1 {x} +2 4");
}

TEST(PwlPoints, AQuadrantWithItsMirrorImageIsFoundAgain) {
  std::mt19937 random(4711);
  const char* const texts[] = {"1", "2.5k", "{a+b}", "+3", "1e-9"};
  for (int round = 0; round < 200; ++round) {
    PwlPoints quadrant;
    for (unsigned i = 0; i < 1 + round % 7U; ++i)
      quadrant.append(
          {QString::fromLatin1(texts[random() % 5]), QString::fromLatin1(texts[random() % 5])});
    const PwlPoints whole = withMirrorImage(quadrant);
    EXPECT_TRUE(isSymmetric(whole));
    EXPECT_EQ(textOf(firstQuadrant(whole)), textOf(quadrant));
  }
}

TEST(CellBlock, TakesWhatSpreadsheetsAndListsGive) {
  const struct {
    const char* text;
    const char* cells; ///< joined with "|", rows with "/"
    bool hadHeading;
    const char* decimalComma;
  } cases[] = {
      {"", "", false, ""},
      {"1\t2.5\r\n3\t\r\n", "1|2.5/3|", false, ""},
      {"1, 2", "1|2", false, ""},
      {"\xef\xbb\xbf"
       "1;2\n3;4",
       "1|2/3|4", false, ""},
      {"Time\tV(out)\n0\t1\n", "0|1", true, ""},
      {"t [s]; i [A]\n0;1,5\n1;2,5e-3", "0|1,5/1|2,5e-3", true, "1,5"},
      {"1,5\n2,7", "1|5/2|7", false, ""}, // who could know
      {"\"1\",\"{a \"\"b\"\", c}\"\n2,{max(1,2)}", "1|{a \"b\", c}/2|{max(1,2)}", false, ""},
      {"0 0\n1u  {x}\n10 k", "0|0/1u|{x}/10 k", false, ""},
      {"0\t0\n* a, comment; too\nSTART_DATA FORMAT=CSV\n\n1\t2", "0|0/* a, comment; too//1|2",
       false, ""},
      {"x,file=\"a b, c\"", "x|file=\"a b, c\"", false, ""},
      {"* time; value\n0, 1\n1\t2", "* time; value/0, 1/1|2", false, ""},
      {"* time; value\n0, 1\n1 2", "* time; value/0|1/1|2", false, ""},
      {"{max(a;b)},2", "{max(a;b)}|2", false, ""},
      {"0 1 # c\n{a + b} 2 7", "0|1|#|c/{a + b}|2|7", false, ""},
      {"\"1\"\n2", "1/2", false, ""},
      {"1,5 2,5", "1|5 2|5", false, "1,5"},
      {"0;1,5k\n-,5;2", "0|1,5k/-,5|2", false, "1,5k"},
      {"0\t1.000,5", "0|1.000,5", false, "1.000,5"},
      {"0\t1,000.5", "0|1,000.5", false, ""},
      {"a\nb", "a/b", false, ""},
      {"\"open\t1\n2", "open 1 2", false, ""},
  };
  for (const auto& c : cases) {
    const CellBlock block = cellsOfBlock(QString::fromUtf8(c.text));
    QStringList rows;
    for (const QStringList& row : block.rows)
      rows.append(row.join(QLatin1Char('|')));
    EXPECT_EQ(rows.join(QLatin1Char('/')).toStdString(), c.cells) << c.text;
    EXPECT_EQ(block.hadHeading, c.hadHeading) << c.text;
    EXPECT_EQ(block.decimalComma.toStdString(), c.decimalComma) << c.text;
  }
}

TEST(ConversionMemory, ComesBackAsItWas) {
  for (const char* text : {"1 2 3 4|1 7n|1|20", "|||", "a|b|c|d"})
    EXPECT_EQ(writeConversionMemory(readConversionMemory(QString::fromLatin1(text))).toStdString(),
              text);
  EXPECT_EQ(readConversionMemory(QString()).limitValue, QStringLiteral("20"));
  EXPECT_EQ(readConversionMemory(QStringLiteral("x")).limitValue, QString());
}
