#include "Core/Analog/MagneticCore.h"
#include "Core/Analog/Windings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
using Turns = std::vector<double>;

} // namespace

TEST(Windings, TakeRatiosAndGiveThemBack) {
  const struct {
    Turns ratios;
    double reference;
    int givenPrimaries, givenSecondaries; // as a script says, whatever it says
    Turns turns, back;
  } cases[] = {
      {{1, 0.5, -2}, 100, 2, 1, {100, 50, -200}, {1, 0.5, -2}},
      {{-1, 0.1}, 49, 1, 1, {-49, 4.9}, {1, 4.9 / -49}},
      {{1, 2}, -30, 1, 1, {-30, -60}, {1, 2}},
      {{0, 3}, 10, 1, 1, {0, 30}, {0, 30}},
      {{-0.0, 1}, 10, 1, 1, {0, 10}, {0, 10}},
      {{2}, 10, 2, 2, {20, 1, 1, 1}, {1, 0.05, 0.05, 0.05}}, // the rest keep one turn
      {{}, 10, 1, 1, {1, 1}, {1, 1}},
      {{1, notANumber}, 10, 1, 1, {10, 1}, {1, 0.1}},
      {{3, 4}, 10, -3, 2, {1, 30, 40}, {1, 30, 40}}, // all of them are secondaries'
      {{3, 4}, 10, 2, -3, {30, 40}, {1, 40.0 / 30}},
  };
  for (const auto& c : cases) {
    Windings windings;
    windings.setCounts(c.givenPrimaries, c.givenSecondaries);
    windings.setRatios(c.ratios.data(), unsigned(c.ratios.size()), c.reference, c.givenPrimaries,
                       c.givenSecondaries);
    SCOPED_TRACE(testing::PrintToString(c.ratios));
    EXPECT_EQ(windings.allTurns(), c.turns);
    EXPECT_EQ(windings.ratios(), c.back);
    for (double each : windings.allTurns())
      EXPECT_FALSE(each == 0 && std::signbit(each));
  }
}

TEST(Windings, AreAtMostTwentyOfAKind) {
  Windings windings;
  windings.setCounts(1'000'000, 1'000'000);
  EXPECT_EQ(windings.count(), 40);
  const Turns ratios(50, 2);
  windings.setRatios(ratios.data(), 50, 10, 20, 20);
  EXPECT_EQ(windings.turns(19), 20);
  EXPECT_EQ(windings.turns(20), 1) << "twenty ratios are used in all";
  windings.setPrimaryTurns(ratios.data(), 50);
  windings.setSecondaryTurns(ratios.data(), 50);
  EXPECT_EQ(windings.allTurns(), Turns(40, 2));
}

TEST(Windings, HaveTheirTurnsAgainWhenTheyComeBack) {
  Windings windings;
  windings.setCounts(2, 2);
  for (int row = 0; row < 4; ++row)
    windings.setTurns(row, -10 - row);
  windings.setCounts(1, 1);
  EXPECT_EQ(windings.allTurns(), (Turns{-10, -12}));
  windings.setCounts(3, 2);
  EXPECT_EQ(windings.allTurns(), (Turns{-10, -11, 1, -12, -13}));
  windings.setCounts(0, -1);
  EXPECT_EQ(windings.allTurns(), (Turns{-10}));
}

TEST(Windings, InductanceGoesByTheSquareOfTheTurns) {
  EXPECT_DOUBLE_EQ(inductancePerTurnSquared(1e-3, 10), 1e-5);
  EXPECT_DOUBLE_EQ(inductancePerTurnSquared(1e-3, -10), 1e-5);
  EXPECT_EQ(inductancePerTurnSquared(1e-3, 0), 0);
  EXPECT_EQ(inductancePerTurnSquared(1e-3, notANumber), 0);
  for (double turns : {0.5, -3.0, 17.0, 1e6})
    EXPECT_DOUBLE_EQ(windingInductance(inductancePerTurnSquared(4.7e-3, turns), turns), 4.7e-3);
}

TEST(MagneticCore, InductanceAndSaturationAgreeOnTheFlux) {
  // At saturation L I = N B A, whatever the core.
  for (double area : {1e-6, 97e-6})
    for (double length : {0.01, 0.0785})
      for (double permeability : {1.0, 1590.0})
        for (double turns : {1.0, -30.0}) {
          const MagneticCore core{area, length, permeability, {}};
          const double inductance = windingInductance(core.inductancePerTurnSquared(), turns);
          EXPECT_DOUBLE_EQ(inductance * *core.currentAt(0.39, turns),
                           std::fabs(turns) * 0.39 * area);
        }
  // 1 square metre over 1 metre of free space.
  EXPECT_DOUBLE_EQ((MagneticCore{1, 1, 1, {}}.inductancePerTurnSquared()), 4e-7 * std::acos(-1.0));
  EXPECT_EQ((MagneticCore{1, 0, 1, {}}.inductancePerTurnSquared()), 0);
  EXPECT_FALSE((MagneticCore{1, 1, 0, {}}.currentAt(0.3, 5)));
  EXPECT_FALSE((MagneticCore{1, 1, 1, {}}.currentAt(0.3, 0)));
}

TEST(MagneticCore, IsReadFromALine) {
  const auto core = readCore("ETD34;97.1u;78.6m;1.59k;N1;later");
  ASSERT_TRUE(core);
  EXPECT_EQ(core->area, 97.1e-6);
  EXPECT_EQ(core->length, 78.6e-3);
  EXPECT_EQ(core->permeability, 1590);
  EXPECT_EQ(core->material.toStdString(), "N1");
  for (const char* line : {"", "ETD34", "ETD34;97u;78m;1590", ";;;"})
    EXPECT_FALSE(readCore(line)) << line;
  EXPECT_EQ(readCore(";;;;")->area, 0);
}

TEST(MagneticCore, AMaterialsFluxDensityIsAPlainNumber) {
  const struct {
    const char* line;
    std::optional<double> density;
  } cases[] = {{"A;1;0.39", 0.39},
               {"A;1; +4.1e-1T;x", 0.41},
               {"A;1;390m", 390},
               {"A;1;high", 0},
               {"A;1;", 0},
               {"A;1", {}},
               {"", {}}};
  for (const auto& c : cases)
    EXPECT_EQ(saturationFluxDensity(c.line), c.density) << c.line;
}

TEST(MagneticCore, NamesAreFoundInAnyCase) {
  const char* const lines[] = {"ETD29;1", ";;etd34;1", "Etd34;2", "", "RM \xc3\x84"};
  const QStringList names = firstFields(Texts(lines, 5));
  EXPECT_EQ(names.join(QLatin1Char('|')).toStdString(), "ETD29|etd34|Etd34||RM \xc3\x84");
  EXPECT_EQ(indexOfName(names, QStringLiteral("ETD34")), 1);
  EXPECT_EQ(indexOfName(names, QString::fromUtf8("rm \xc3\xa4")), 4);
  EXPECT_EQ(indexOfName(names, QStringLiteral("ETD")), -1);
}
