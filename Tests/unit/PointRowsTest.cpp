#include "Core/Pwl/PointRows.h"
#include "Core/Pwl/PointsFile.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using Kind = PointRow::Kind;
using Counted = PointRows::Counted;

namespace {

PointRow rowOf(Kind kind, const char* x, const char* y, const char* fault = "") {
  return {kind, QString::fromUtf8(x), QString::fromUtf8(y), QString::fromUtf8(fault)};
}

/// Faults in these lines, counted from 1.
SyntaxMessages faultsIn(const std::vector<int>& lines) {
  std::string text;
  for (int line : lines)
    text += "<< Error Message ID: 1100 >>\nin points, line " + std::to_string(line) +
            ":\nNo number\n****\n";
  return SyntaxMessages(QString::fromStdString(text));
}

PointRows rowsOf(const std::vector<const char*>& lines, const std::vector<int>& faults = {},
                 Counted counted = Counted::Points) {
  LineStore store;
  for (const char* line : lines)
    store.append(line);
  PointRows rows(counted);
  rows.setLines(store, faultsIn(faults));
  return rows;
}

std::string lineAt(const PointRows& rows, int row) {
  return rows.lineAt(row, QStringLiteral("|")).toStdString();
}

/// What `PointRows` does, with all rows in full.
struct Naive {
  struct Row {
    PointRow value;
    QByteArray line; ///< of a row that nobody has edited
    bool isEdited = true;
  };

  void load(const std::vector<const char*>& lines, const std::vector<int>& faults) {
    rows.clear();
    for (const char* line : lines)
      rows.push_back({readPointsLine(line), line, false});
    for (int fault : faults) {
      Row& row = rows[static_cast<std::size_t>(fault - 1)];
      const PwlPoint fields = fieldsOfPointsLine(row.line.toStdString());
      row.isEdited = true;
      row.value.fault = QStringLiteral("Line number %1:\n\nNo number").arg(fault);
      if (row.value.kind == Kind::StartData) {
        row.value.x = QString::fromUtf8(row.line).trimmed();
        row.value.y = QString();
      } else {
        row.value = {Kind::Point, fields.x, fields.y, row.value.fault};
      }
    }
  }

  std::string lineAt(const Row& row) const {
    const bool isComment = row.value.kind == Kind::Comment;
    if (isComment && !row.isEdited)
      return row.line.toStdString();
    const std::string x = row.value.x.toStdString();
    if (x.empty() || (row.value.kind == Kind::StartData && row.value.fault.isEmpty()))
      return x;
    return x + (isComment ? "" : "|") + row.value.y.toStdString();
  }

  int countIf(bool (*counts)(const PointRow&)) const {
    return static_cast<int>(std::count_if(rows.begin(), rows.end(),
                                          [counts](const Row& row) { return counts(row.value); }));
  }

  std::vector<Row> rows;
};

void compare(const PointRows& rows, const Naive& naive) {
  const int count = static_cast<int>(naive.rows.size());
  ASSERT_EQ(rows.count(), count);
  int start = -1;
  int used = 0;
  PwlPoints complete;
  bool isComplete = true;
  for (int i = 0; i < count; ++i) {
    const PointRow& value = naive.rows[static_cast<std::size_t>(i)].value;
    ASSERT_TRUE(rows.at(i) == value) << i << ": " << rows.at(i).x.toStdString();
    for (int column = 0; column < 3; ++column)
      ASSERT_EQ(rows.hasCell(i, column), value.hasCell(column)) << i << ' ' << column;
    ASSERT_EQ(lineAt(rows, i), naive.lineAt(naive.rows[static_cast<std::size_t>(i)])) << i;
    if (start < 0 && value.kind == Kind::StartData)
      start = i;
    if (value.kind == Kind::Comment || value.isFilled())
      used = i + 1;
    isComplete = isComplete && value.isFilled();
    if (isComplete)
      complete.append({value.x, value.y});
  }
  const int points =
      naive.countIf([](const PointRow& row) { return row.kind == Kind::Point && row.isFilled(); });
  ASSERT_EQ(rows.startDataRow(), start);
  ASSERT_EQ(rows.rowsInUse(), used);
  ASSERT_EQ(rows.points(), complete);
  ASSERT_EQ(rows.completeRows(), complete.size());
  ASSERT_EQ(rows.countPoints(), points);
  ASSERT_TRUE(rows.mayInsert(2, std::min(count, points) + 2));
  ASSERT_FALSE(rows.mayInsert(2, std::min(count, points) + 1));
  ASSERT_TRUE(rows.mayDelete(points - 1));
  ASSERT_FALSE(rows.mayDelete(points));
}

TEST(PointRows, AnySequenceOfEditsIsThatOfANaiveTable) {
  static const char* const lines[] = {
      "1 2",     "3,{a + b}",      "4",  "", "* note", "*\xff", "START_DATA  REPEAT_COUNT=2",
      " 5 six ", "2 file=\"a b\"", "- -"};
  static const char* const texts[] = {"", "7", "* seven", " 7 k", "START_DATA", "{b}"};
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
  PointRows rows(Counted::Points);
  Naive naive;
  struct Step {
    PointRows::Change change;
    Naive before;
  };
  std::vector<Step> steps;
  for (int step = 0; step < 6000; ++step) {
    const int count = rows.count();
    const int row = count > 0 ? below(count) : 0;
    const auto at = naive.rows.begin() + row;
    const int operation = below(count > 0 ? 12 : 2);
    const PointRows::State state = rows.state();
    const Naive before = naive;
    if (step % 300 == 0) {
      std::vector<const char*> loaded;
      std::vector<int> faults;
      for (int i = 0; i < 8; ++i)
        loaded.push_back(lines[below(std::size(lines))]);
      for (int i = below(3); i > 0; --i)
        faults.push_back(1 + 2 * i);
      LineStore store;
      for (const char* line : loaded)
        store.append(line);
      rows.setLines(store, faultsIn(faults));
      naive.load(loaded, faults);
    } else if (operation < 2) {
      const int more = below(3);
      rows.insert(row, more);
      naive.rows.insert(at, static_cast<std::size_t>(more), Naive::Row());
    } else if (operation < 4) {
      const int fewer = below(std::min(3, count - row) + 1);
      rows.remove(row, fewer);
      naive.rows.erase(at, at + fewer);
    } else if (operation < 5) {
      const PointRow value = rowOf(Kind::Origin, "0", "0");
      rows.set(row, value);
      *at = {value, {}, true};
    } else if (operation < 10) {
      const int column = below(2);
      const QString text = QString::fromUtf8(texts[below(std::size(texts))]);
      rows.setText(row, column, text);
      (column == 0 ? at->value.x : at->value.y) = text;
      at->isEdited = true;
    } else {
      PointRow& value = at->value;
      const QString text = value.x.simplified();
      const Kind kind = text.startsWith(QLatin1Char('*')) ? Kind::Comment : Kind::Point;
      const bool isOther = (value.kind == Kind::Point || value.kind == Kind::Comment) &&
                           (value.kind != kind || !value.fault.isEmpty());
      ASSERT_EQ(rows.adapt(row), isOther) << value.x.toStdString();
      if (isOther)
        *at = {{kind, text, value.y, QString()}, {}, true};
    }
    steps.push_back({rows.changeSince(state), before});
    compare(rows, naive);
    if (HasFatalFailure())
      return;
    if (below(50) > 0)
      continue;
    // Some steps back, and some of these forth again; what can come back no more is forgotten.
    const Naive after = naive;
    const std::size_t undone = std::min(steps.size(), std::size_t(below(8)));
    for (std::size_t i = 0; i < undone; ++i) {
      const Step& last = steps[steps.size() - 1 - i];
      rows.apply(last.change, true);
      compare(rows, last.before);
    }
    const std::size_t redone = below(2) ? undone : 0;
    for (std::size_t i = steps.size() - undone; i < steps.size() - undone + redone; ++i)
      rows.apply(steps[i].change, false);
    naive = redone || !undone ? after : steps[steps.size() - undone].before;
    compare(rows, naive);
    for (std::size_t i = redone; i < undone; ++i) {
      rows.forget(steps.back().change, true);
      steps.pop_back();
    }
    while (steps.size() > 20) {
      rows.forget(steps.front().change, false);
      steps.erase(steps.begin());
    }
    compare(rows, naive);
  }
}

TEST(PointRows, CellsAndEditsByKind) {
  const struct {
    PointRow row;
    const char* cells;    ///< columns that have one
    const char* editable; ///< of the first two
  } cases[] = {
      {rowOf(Kind::Point, "", ""), "012", "01"},
      {rowOf(Kind::Point, "1", "2", "fault"), "01", "01"},
      {rowOf(Kind::Computed, "1", "2"), "01", "01"},
      {rowOf(Kind::Origin, "0", "0"), "01", ""},
      {rowOf(Kind::Comment, "*", ""), "01", "01"},
      {rowOf(Kind::StartData, "START_DATA", ""), "01", "1"},
      {rowOf(Kind::StartData, "START_DATA", "", "fault"), "0", "0"},
  };
  for (const auto& each : cases) {
    std::string cells;
    std::string editable;
    for (int column = 0; column < 3; ++column) {
      cells += each.row.hasCell(column) ? std::to_string(column) : "";
      editable += each.row.isEditable(column) ? std::to_string(column) : "";
    }
    EXPECT_EQ(cells, each.cells) << each.row.x.toStdString();
    EXPECT_EQ(editable, each.editable) << each.row.x.toStdString();
  }
}

TEST(PointRows, LinesComeBackAsTheyCame) {
  PointRows rows =
      rowsOf({"* \xff note", "START_DATA  FORMAT=CSV", "1,2", "4", "START_DATA x"}, {5});
  EXPECT_EQ(lineAt(rows, 0), "* \xff note");
  EXPECT_EQ(lineAt(rows, 1), "START_DATA FORMAT=CSV");
  EXPECT_EQ(lineAt(rows, 2), "1|2");
  EXPECT_EQ(lineAt(rows, 3), "4|");
  EXPECT_EQ(lineAt(rows, 4), "START_DATA x|") << "at fault: written as the user sees it";
  rows.setText(0, 1, QStringLiteral("!"));
  EXPECT_EQ(lineAt(rows, 0), "* \xef\xbf\xbd note!");
}

TEST(PointRows, LimitsCountRowsOrPoints) {
  const std::vector<const char*> lines = {"* a", "1 2", "3 4", "5", "6 7", ""};
  const PointRows curve = rowsOf(lines, {}, Counted::Rows);
  const PointRows file = rowsOf(lines, {}, Counted::Points);
  EXPECT_TRUE(curve.mayInsert(4, 10) && file.mayInsert(4, 7));
  EXPECT_FALSE(curve.mayInsert(4, 9) || file.mayInsert(4, 6));
  EXPECT_TRUE(file.mayDelete(2));
  EXPECT_FALSE(file.mayDelete(3));
  const PointRows complete = rowsOf({"1 2", "3 4", "5 6", ""}, {}, Counted::Rows);
  EXPECT_TRUE(complete.mayDelete(1));
  EXPECT_FALSE(complete.mayDelete(2)) << "one more than the least has to stay";
  EXPECT_EQ(complete.completeRows(1), 2);
  EXPECT_EQ(textOfPoints(complete.points(1)), QStringLiteral("3 4 5 6"));
  EXPECT_EQ(file.countPoints(2), 2);
}

TEST(PointRows, TheStartDataLineStays) {
  const PointRows rows = rowsOf({"* a", "START_DATA", "1 2", "start_data"});
  EXPECT_TRUE(rows.isRemovable(0, 1) && rows.isRemovable(2, 1));
  EXPECT_FALSE(rows.isRemovable(2, 2) || rows.isRemovable(0, 2) || rows.isRemovable(1, 1) ||
               rows.isRemovable(0, 3));
  EXPECT_TRUE(rowsOf({"1 2", "3 4"}).isRemovable(0, 2));
}

} // namespace
