#include "Core/Application/DataGroups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace {

using Flags = std::vector<DataGroupFlags>;

/// A letter a group: g global, c current, k kept, x deleted; capitals are both current and what the
/// small letter says; a dot is none of these.
Flags groupsOf(const std::string& letters) {
  Flags flags;
  for (char letter : letters) {
    const auto is = [letter](char small, char capital) {
      return letter == small || letter == capital;
    };
    DataGroupFlags group;
    group.isGlobal = is('g', 'G');
    group.isKeep = is('k', 'K');
    group.isCurrent = std::string("cGK").find(letter) != std::string::npos;
    group.isDeleted = letter == 'x';
    flags.push_back(group);
  }
  return flags;
}

std::string lettersOf(const Flags& flags) {
  std::string letters;
  for (const DataGroupFlags& group : flags)
    letters += group.isDeleted   ? (group.isCurrent || group.isKeep ? '!' : 'x')
               : group.isGlobal  ? (group.isCurrent ? 'G' : 'g')
               : group.isKeep    ? (group.isCurrent ? 'K' : 'k')
               : group.isCurrent ? 'c'
                                 : '.';
  return letters;
}

DataGroups viewOf(Flags& flags) {
  DataGroups groups;
  for (DataGroupFlags& group : flags)
    groups.append(&group);
  return groups;
}

RowBlocks blocksOf(const std::set<int>& rows) {
  RowBlocks blocks;
  for (int row : rows)
    blocks.push_back({row, row});
  return blocks;
}

std::set<int> rowsOf(const RowBlocks& blocks) {
  std::set<int> rows;
  for (const RowBlock& block : blocks)
    for (int row = block.first; row <= block.last; ++row)
      EXPECT_TRUE(rows.insert(row).second) << "row " << row << " twice";
  return rows;
}

using Rows = std::set<int>;

} // namespace

TEST(DataGroups, LinesAreReadAndWritten) {
  const struct {
    const char* line;
    const char* name;
    const char* title;
    const char* analysis;
    const char* words;
    const char* result;
  } cases[] = {
      {"tran1;Start-up;Transient;keep|current", "tran1", "Start-up", "Transient", "keep,current",
       "tran1;Start-up;keep|current"},
      {"g;T;A;CURRENT|Keep|gLoBaL", "g", "T", "A", "global,keep,current",
       "g;T;global|keep|current"},
      {"g;T;A;keep|keep|keep|global", "g", "T", "A", "global,keep", "g;T;global|keep"},
      {"a;b;c", "a", "b", "c", "", "a;b;"},
      {"a", "a", "", "", "", "a;;"},
      {"", "", "", "", "", ";;"},
      {nullptr, "", "", "", "", ";;"},
      {";;;global", "", "", "", "global", ";;global"},
      {"a;b;c;keep;global", "a", "b", "c", "", "a;b;"}, // the fourth field is all the rest
      {"a;b;c;deleted|kept|keep ", "a", "b", "c", "", "a;b;"},
      {"a\nb;\xff\xfe;<c>;|keep|", "a\nb", "\xff\xfe", "<c>", "keep", "a\nb;\xff\xfe;keep"},
  };
  for (const auto& c : cases) {
    const DataGroup group = readDataGroup(c.line);
    EXPECT_EQ(group.name, c.name);
    EXPECT_EQ(group.title, c.title);
    EXPECT_EQ(group.analysis, c.analysis);
    EXPECT_EQ(dataGroupWords(group.flags, ","), c.words);
    EXPECT_EQ(writeDataGroup(group.name, group.title, group.flags), c.result);
  }
  DataGroupFlags flags;
  flags.isDeleted = true;
  EXPECT_EQ(writeDataGroup("a", "b", flags), "a;b;deleted");
  flags.isGlobal = true;
  EXPECT_EQ(writeDataGroup("a", "b", flags), "a;b;global|deleted");
}

TEST(DataGroups, Deletion) {
  const struct {
    const char* before;
    Rows rows;
    const char* after;
    Rows deleted;
    Rows selected;
    int cursor;
  } cases[] = {
      {"g.c.", {1}, "gxc.", {1}, {2}, 2},
      {"g.c.", {2}, "gcx.", {2}, {3}, 3}, // the first left is the current one
      {"g.c.", {1, 2}, "gxxc", {1, 2}, {3}, 3},
      {"g.c.", {3}, "g.cx", {3}, {}, 2}, // nothing follows
      {"g.c.", {1, 2, 3}, "Gxxx", {1, 2, 3}, {}, 0},
      {"gc", {0, 1}, "Gx", {1}, {0}, 0}, // the global one stays selected
      {"G.", {0}, "G.", {}, {0}, -1},
      {"cg.", {0}, "xgc", {0}, {1}, 1},
      {"gcx.", {1}, "gxxc", {1}, {3}, 3}, // what follows is what is shown next
      {"gxc", {2}, "Gxx", {2}, {}, 0},
      {"k.c", {0}, "x.c", {0}, {1}, 1},
      {"Kx", {0}, "xx", {0}, {}, -1}, // no global group, none left
      {"cc.", {0}, "xc.", {0}, {1}, 1},
      {"c.c", {0}, "xc.", {0}, {1}, 1}, // one only, however many there were
      {".c...", {0, 2}, "xcx..", {0, 2}, {3}, 3},
      {"gc", {}, "gc", {}, {}, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.before);
    Flags flags = groupsOf(c.before);
    DataGroups groups = viewOf(flags);
    const DataGroups::Removal removal = groups.remove(blocksOf(c.rows));
    EXPECT_EQ(lettersOf(flags), c.after);
    EXPECT_EQ(rowsOf(removal.deleted), c.deleted);
    EXPECT_EQ(rowsOf(removal.selected), c.selected);
    EXPECT_EQ(removal.cursor, c.cursor);
  }
}

TEST(DataGroups, DeletionOfAll) {
  const struct {
    const char* before;
    const char* after;
    int global;
  } cases[] = {
      {".gck", "xGxx", 1}, {"gcg", "Gxg", 0}, {".c", "xx", -1}, {"g", "G", 0}, {"", "", -1}};
  for (const auto& c : cases) {
    Flags flags = groupsOf(c.before);
    DataGroups groups = viewOf(flags);
    const DataGroups::Removal removal = groups.removeAll();
    EXPECT_EQ(lettersOf(flags), c.after);
    EXPECT_EQ(rowsOf(removal.selected), c.global < 0 ? Rows{} : Rows{c.global});
    EXPECT_EQ(removal.cursor, c.global);
  }
}

TEST(DataGroups, WhatCanBeDone) {
  const struct {
    const char* groups;
    Rows rows;
    const char* actions; ///< s set current, d delete, k keep, a delete all, e edit title
  } cases[] = {
      {"g.c", {}, "a"},       {"g.c", {1}, "sdkae"}, {"g.c", {0}, "sdka"}, {"g.c", {1, 2}, "dka"},
      {"g.c", {0, 2}, "dka"}, {"gxx", {}, ""},       {"Gx", {0}, "sdk"},   {"g.x", {1, 2}, "sdkae"},
      {"gx.", {1}, "a"},      {"", {}, ""},
  };
  for (const auto& c : cases) {
    Flags flags = groupsOf(c.groups);
    const DataGroups::Actions can = viewOf(flags).actions(blocksOf(c.rows));
    std::string actions;
    for (const auto& [letter, enabled] : {std::pair('s', can.setCurrent),
                                          {'d', can.remove},
                                          {'k', can.keep},
                                          {'a', can.removeAll},
                                          {'e', can.editTitle}})
      if (enabled)
        actions += letter;
    EXPECT_EQ(actions, c.actions) << c.groups;
  }
}

TEST(DataGroups, RulesHoldHoweverTheUserGoesOn) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 2000; ++round) {
    std::string letters;
    for (unsigned i = random() % 12; i > 0; --i)
      letters += "g...k"[random() % 5];
    const bool hasCurrent = !letters.empty() && random() % 4 != 0;
    Flags flags = groupsOf(letters);
    if (hasCurrent)
      flags[random() % flags.size()].isCurrent = true;
    DataGroups groups = viewOf(flags);
    const int size = static_cast<int>(flags.size());
    bool asksForCurrent = hasCurrent;

    for (int step = 0; step < 12; ++step) {
      Rows rows;
      for (int row = 0; row < size; ++row)
        if (random() % 3 == 0) // deleted ones, too: they count as not passed
          rows.insert(row);
      RowBlocks blocks = blocksOf(rows);
      std::shuffle(blocks.begin(), blocks.end(), random);
      const Flags before = flags;
      Rows expectDeleted;
      DataGroups::Removal removal;
      const unsigned operation = random() % 5;
      if (operation == 0) {
        groups.keep(blocks);
        for (int row = 0; row < size; ++row)
          ASSERT_EQ(flags[std::size_t(row)].isKeep,
                    before[std::size_t(row)].isKeep ||
                        (rows.count(row) && !before[std::size_t(row)].isDeleted));
      } else if (operation == 1) {
        if (rows.empty() || flags[std::size_t(*rows.begin())].isDeleted)
          continue;
        groups.setCurrent(*rows.begin());
        ASSERT_EQ(groups.current(), *rows.begin());
        asksForCurrent = true;
      } else {
        const bool all = operation == 2;
        for (int row = 0; row < size; ++row)
          if ((all || rows.count(row)) && !before[std::size_t(row)].isGlobal &&
              !before[std::size_t(row)].isDeleted)
            expectDeleted.insert(row);
        removal = all ? groups.removeAll() : groups.remove(blocks);
        asksForCurrent |= all;
        ASSERT_EQ(rowsOf(removal.deleted), expectDeleted);
      }

      int currents = 0;
      int left = 0;
      int global = 0;
      for (int row = 0; row < size; ++row) {
        const DataGroupFlags& was = before[std::size_t(row)];
        const DataGroupFlags& is = flags[std::size_t(row)];
        ASSERT_EQ(is.isGlobal, was.isGlobal);
        ASSERT_EQ(is.isDeleted, was.isDeleted || expectDeleted.count(row)); // and never comes back
        ASSERT_FALSE(is.isDeleted && (is.isGlobal || is.isKeep || is.isCurrent));
        currents += is.isCurrent;
        left += !is.isDeleted;
        global += is.isGlobal;
      }
      // A list without a global group can run out of groups; what has all deleted makes only a
      // global group current.
      ASSERT_LE(currents, 1);
      if (asksForCurrent && left > 0 && (operation != 2 || global > 0)) {
        ASSERT_EQ(currents, 1) << letters;
      }
      if (left == 0)
        asksForCurrent = false;

      for (int row : rowsOf(removal.selected))
        ASSERT_FALSE(flags[std::size_t(row)].isDeleted);
      if (removal.cursor >= 0) {
        ASSERT_FALSE(flags[std::size_t(removal.cursor)].isDeleted);
      } else if (!expectDeleted.empty()) {
        ASSERT_EQ(left, 0);
      }
    }
  }
}
