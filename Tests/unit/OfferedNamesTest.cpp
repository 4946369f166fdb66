#include "Core/Generic/OfferedNames.h"

#include <gtest/gtest.h>

namespace {

using Order = OfferedNames::Order;

QStringList words(const char* text) {
  return QString::fromUtf8(text).split(QLatin1Char(' '));
}

} // namespace

TEST(OfferedNames, RowsKnowWhereTheyCameFrom) {
  const struct {
    Order order;
    const char* rows;
    std::vector<int> places;
  } cases[] = {
      {Order::AsGiven, "c B a B", {0, 1, 2, 3}},
      {Order::Ascending, "B B a c", {1, 3, 2, 0}},
  };
  for (const auto& c : cases) {
    const OfferedNames offered(words("c B a B"), c.order);
    EXPECT_EQ(offered.names(), words(c.rows));
    for (int row = 0; row < 4; ++row) {
      EXPECT_EQ(offered.place(row), c.places[std::size_t(row)]);
      EXPECT_EQ(offered.rowOfPlace(offered.place(row)), row);
    }
    EXPECT_EQ(offered.rowOfPlace(-1), -1);
    EXPECT_EQ(offered.rowOfPlace(4), -1);
  }
}

TEST(OfferedNames, FindsTheNameThatIsMeant) {
  const struct {
    const char* names;
    const char* text;
    int nearest;
    int name;
  } cases[] = {
      {"BC547 BC548 bc5", "BC54", 0, -1},
      {"BC547 BC548 bc5", "bc548", 1, 1},
      {"BC547 BC548 bc5", "bc5", 2, 2},
      {"R10 R1", "R1", 1, 1},
      {"D1N4148 d1n4148_hot", "d1n4148", 0, 0}, // the same in any case before a beginning
      {"R1 r1 R1", "r1", 1, 1},                 // the same text before any case
      {"BC547 bc547_a", "bc", 0, -1},
      {"Straße", "STRASSE", -1, -1},
      {"ΣΊΣΥΦΟΣ", "σίσυφος", 0, 0},
      {"a b", "", -1, -1},
      {"a b", "ab", -1, -1},
  };
  for (const auto& c : cases) {
    const OfferedNames offered(words(c.names), Order::AsGiven);
    EXPECT_EQ(offered.nearestRow(QString::fromUtf8(c.text)), c.nearest) << c.text;
    EXPECT_EQ(offered.rowOfName(QString::fromUtf8(c.text)), c.name) << c.text;
  }
}

TEST(OfferedNames, ANameSelectsItselfWhereNamesAreSorted) {
  // Else a box that is opened with a name and accepted as it stands would give another name.
  const OfferedNames offered(words("r1 R10 r10 R1 r r1 2N2 2n22"), Order::Ascending);
  for (const QString& name : offered.names())
    EXPECT_EQ(offered.names().at(offered.nearestRow(name)), name);
}
