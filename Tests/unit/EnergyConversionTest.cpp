#include "Core/Pwl/EnergyConversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

static Curve curve(const char* text) {
  return curveOfEngText(pointsOfText(QString::fromUtf8(text)));
}

static std::string textOf(const Curve& curve) {
  return textOfPoints(engTextOfCurve(curve)).toStdString();
}

TEST(EnergyConversion, LeadingNumbersHaveNoSuffix) {
  const std::pair<const char*, double> cases[] = {
      {"1.5n", 1.5}, {" -2e-9x", -2e-9}, {"+.5", 0.5}, {"3.", 3},
      {"1e", 1},     {"1e+", 1},         {"2,5", 2},   {"0x10", 0},
      {"", 0},       {"x", 0},           {".", 0},     {"-", 0},
      {"-.e5", 0},   {"1Meg", 1},        {"--1", 0},   {"1e400", HUGE_VAL},
      {"nan", 0},    {"\xc2\xb5", 0},    {"1e-400", 0}};
  for (const auto& [text, value] : cases)
    EXPECT_EQ(leadingReal(QString::fromUtf8(text)), value) << text;
  EXPECT_EQ(textOfPoints(withoutSuffixes({{QStringLiteral("2.2u"), QStringLiteral("1e-9")}})),
            QStringLiteral("2.2 1n"));
}

TEST(EnergyConversion, ExactTextKeepsEveryDigit) {
  std::mt19937_64 random(4711);
  Curve made;
  for (int i = 0; i < 1000; ++i)
    made.append(std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 150),
                -1.0 / static_cast<double>(1 + random() % 1000));
  const Curve read = curveOfExactText(exactTextOfCurve(made));
  EXPECT_EQ(read.x, made.x);
  EXPECT_EQ(read.y, made.y);
  EXPECT_EQ(textOf(curve("1.23456789k {a}")), "1.23457k 0");
}

TEST(EnergyConversion, StepsAreNeighboursOfTheSameText) {
  const std::pair<const char*, bool> cases[] = {
      {"", false},          {"0 1", false},   {"0 1 1 1 1 2 2 2", true}, {"0 1 1 1 0 2", false},
      {"1 1 1.0 2", false}, {"0 1 0 1", true}};
  for (const auto& [text, stepWise] : cases)
    EXPECT_EQ(isStepWise(pointsOfText(QString::fromLatin1(text))), stepWise) << text;
}

TEST(EnergyConversion, DifferentiationGivesAStepPerPiece) {
  EXPECT_EQ(textOf(differentiate(curve("0 0 1 2 3 4"))), "0 2 1 2 1 1 3 1");
  EXPECT_EQ(textOf(differentiate(curve("0 0 1 2 1 4"))), "0 2 1 2 1 inf 1 inf");
  EXPECT_EQ(textOf(differentiate(curve("0 5"))), "");
  EXPECT_EQ(textOf(differentiate(Curve())), "");
}

TEST(EnergyConversion, ACurveIsCutAtItsFirstPointBeyondTheLimit) {
  const Curve whole = curve("0 1 2 3 4 5 1 7");
  EXPECT_EQ(textOf(upTo(2, whole)), "0 1 2 3");
  EXPECT_EQ(textOf(upTo(3, whole)), "0 1 2 3");
  EXPECT_EQ(textOf(upTo(9, whole)), textOf(whole));
  EXPECT_EQ(textOf(upTo(-1, whole)), "");
  Curve broken = whole;
  broken.x[1] = std::nan("");
  EXPECT_EQ(textOf(upTo(9, broken)), "0 1");
}

TEST(EnergyConversion, UnitsLeaveOneToThreeDigitsBeforeThePoint) {
  const char* const prefixes[] = {"e-24", "e-21", "a",   "f", "p", "n",   "u",   "m",
                                  "",     "k",    "Meg", "G", "T", "e15", "e18", "e21"};
  for (int exponent = -24; exponent <= 23; ++exponent) {
    const std::string text = "1e" + std::to_string(exponent);
    const double value = curve((text + " 0").c_str()).x.front();
    const EngUnit unit = engUnitOf(value);
    EXPECT_EQ(unit.prefix.toStdString(), prefixes[(exponent + 24) / 3]) << text;
    EXPECT_GE(value / unit.scale, 1) << text;
    EXPECT_LT(value / unit.scale, 1000) << text;
  }
  EXPECT_EQ(engUnitOf(999.9e-9).prefix, QStringLiteral("n"));
  EXPECT_EQ(engUnitOf(1e30).prefix, QStringLiteral("e21"));
  for (double value : {0.0, -0.0, -5.0, std::nan(""), HUGE_VAL, -HUGE_VAL,
                       std::numeric_limits<double>::denorm_min()}) {
    EXPECT_EQ(engUnitOf(value).scale, 1) << value;
    EXPECT_EQ(engUnitOf(value).prefix, QString()) << value;
  }
}

TEST(EnergyConversion, PlotsAreScaledByTheFirstInputAndTheLastOutput) {
  const EnergyPlot plot =
      energyPlot(curve("0 2n 4k 1n"), curve("0 0 4k 6u"), curve("0 0 2k 4u 4k 6u"));
  EXPECT_EQ((plot.xUnit.prefix + plot.inputUnit.prefix + plot.outputUnit.prefix).toStdString(),
            "knu");
  EXPECT_EQ(textOf(plot.input), "0 2 4 1");
  EXPECT_EQ(textOf(plot.integral), "0 0 4 6");
  EXPECT_EQ(textOf(plot.output), "0 0 2 4 4 6");
  EXPECT_EQ(textOf(plot.derivative), "0 2 2 2 2 1 4 1");
  EXPECT_EQ(energyPlot(Curve(), Curve(), Curve()).derivative.size(), 0U);
}

TEST(EnergyConversion, RangesAreOfWhatIsFinite) {
  const Range range = rangeOf({std::nan(""), 3, HUGE_VAL}, {-1, 2});
  EXPECT_EQ(range.minimum, -1);
  EXPECT_EQ(range.maximum, 3);
  EXPECT_EQ(rangeOf({}, {std::nan("")}).maximum, 1);
}
