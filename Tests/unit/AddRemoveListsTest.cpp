#include "Core/Generic/AddRemoveLists.h"

#include <gtest/gtest.h>

#include <QString>

#include <algorithm>
#include <random>
#include <set>

namespace {

QStringList words(const char* text) {
  const QString all = QString::fromUtf8(text);
  return all.isNull() ? QStringList() : all.split(QLatin1Char(' '));
}

std::string shown(const AddRemoveLists& lists, const AddRemoveLists::Items& items) {
  QStringList texts;
  for (int item : items)
    texts.append(lists.text(item));
  return texts.join(QLatin1Char(' ')).toStdString();
}

} // namespace

TEST(AddRemoveLists, AvailableItemsAreShownOnceAndOnlyIfNotSelected) {
  const struct {
    const char* selected;
    const char* available;
    const char* insensitive;
    const char* sensitive;
  } cases[] = {
      {nullptr, "a b c", "a b c", "a b c"},
      {"b", "a b c", "a c", "a c"},
      {"a b", "b a", "", ""},
      {nullptr, "a b a b b", "a b", "a b"},
      {"A", "a B b", "B", "a B b"},
      {"a a", "a A c", "c", "A c"}, // selected duplicates stay
      {nullptr, "Straße STRASSE straße", "Straße STRASSE", "Straße STRASSE straße"},
      {"ΣΊΣΥΦΟΣ", "σίσυφος µ μ", "µ", "σίσυφος µ μ"},
      {"𐐀", "𐐨 x", "x", "𐐨 x"},
  };
  for (const auto& c : cases) {
    const QStringList selected = words(c.selected);
    const AddRemoveLists folded(selected, words(c.available), Qt::CaseInsensitive);
    EXPECT_EQ(shown(folded, folded.available()), c.insensitive);
    EXPECT_EQ(shown(folded, folded.selected()), selected.join(QLatin1Char(' ')).toStdString());
    const AddRemoveLists exact(selected, words(c.available), Qt::CaseSensitive);
    EXPECT_EQ(shown(exact, exact.available()), c.sensitive);
  }
}

TEST(AddRemoveLists, MovesByOneRow) {
  const struct {
    RowBlocks rows;
    int step;
    const char* order;
    RowBlocks now;
  } cases[] = {
      {{}, -1, "a b c d e", {}},
      {{{2, 2}}, -1, "a c b d e", {{1, 1}}},
      {{{2, 2}}, 1, "a b d c e", {{3, 3}}},
      {{{0, 0}}, -1, "a b c d e", {{0, 0}}},
      {{{4, 4}}, 1, "a b c d e", {{4, 4}}},
      {{{1, 2}}, -1, "b c a d e", {{0, 1}}},
      {{{1, 2}}, 1, "a d b c e", {{2, 3}}},
      {{{1, 1}, {0, 0}}, -1, "a b c d e", {{0, 1}}}, // stopped by the one at the end
      {{{4, 4}, {1, 1}, {3, 3}}, 1, "a c b d e", {{2, 2}, {3, 4}}},
      {{{3, 3}, {0, 0}}, -1, "a b d c e", {{0, 0}, {2, 2}}},
      {{{0, 4}}, 1, "a b c d e", {{0, 4}}},
  };
  for (const auto& c : cases) {
    AddRemoveLists lists(words("a b c d e"), {}, Qt::CaseInsensitive);
    EXPECT_EQ(lists.move(c.rows, c.step), c.now);
    EXPECT_EQ(shown(lists, lists.selected()), c.order);
  }
}

TEST(AddRemoveLists, AgreesWithTheSlowObviousWay) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const QString alphabet = QString::fromUtf8("aAbBßẞsSıIİiµμΜkKſǅǆΣςσ");
  const auto texts = [&](unsigned most) {
    QStringList list;
    for (unsigned i = random() % (most + 1); i > 0; --i) {
      QString text;
      for (unsigned length = random() % 3; length > 0; --length)
        text.append(alphabet.at(static_cast<int>(random() % unsigned(alphabet.size()))));
      list.append(text);
    }
    return list;
  };
  for (int round = 0; round < 500; ++round) {
    const QStringList chosen = texts(8);
    const QStringList offered = texts(30);
    const auto comparison = random() % 2 ? Qt::CaseSensitive : Qt::CaseInsensitive;
    AddRemoveLists lists(chosen, offered, comparison);

    std::vector<QString> selected(chosen.begin(), chosen.end());
    std::vector<QString> available;
    for (const QString& text : offered) {
      const auto same = [&](const QString& other) { return other.compare(text, comparison) == 0; };
      if (std::none_of(selected.begin(), selected.end(), same) &&
          std::none_of(available.begin(), available.end(), same))
        available.push_back(text);
    }
    for (int step = 0; step < 8; ++step) {
      const unsigned operation = random() % 4;
      std::vector<QString>& from = operation == 0 ? available : selected;
      std::vector<QString>& to = operation == 0 ? selected : available;
      std::set<int> rows;
      for (int row = 0; row < static_cast<int>(from.size()); ++row)
        if (random() % 3 == 0)
          rows.insert(row);
      RowBlocks blocks;
      for (int row : rows)
        blocks.push_back({row, row});
      std::shuffle(blocks.begin(), blocks.end(), random);

      if (operation < 2) {
        for (int row : rows)
          to.push_back(from[std::size_t(row)]);
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
          from.erase(from.begin() + *row);
        operation == 0 ? lists.add(blocks) : lists.remove(blocks);
      } else {
        const int direction = operation == 2 ? -1 : 1;
        std::vector<int> order(rows.begin(), rows.end());
        if (direction > 0)
          std::reverse(order.begin(), order.end());
        int limit = direction < 0 ? 0 : static_cast<int>(selected.size()) - 1;
        for (int row : order) {
          const bool stops = row == limit;
          if (!stops)
            std::swap(selected[std::size_t(row)], selected[std::size_t(row + direction)]);
          else
            limit -= direction;
        }
        lists.move(blocks, direction);
      }
      const auto expectSame = [&](const AddRemoveLists::Items& items,
                                  const std::vector<QString>& model) {
        ASSERT_EQ(items.size(), model.size());
        for (std::size_t i = 0; i < items.size(); ++i)
          ASSERT_EQ(lists.text(items[i]), model[i]);
      };
      expectSame(lists.selected(), selected);
      expectSame(lists.available(), available);
    }
  }
}
