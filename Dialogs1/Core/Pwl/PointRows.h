#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/PointRow.h"
#include "Core/Pwl/PwlPoints.h"
#include "Core/Pwl/SyntaxMessages.h"

#include <QHash>
#include <QVector>

#include <limits>
#include <optional>
#include <utility>

/// The rows of a point table, and what may be done with them. The lines of a file stay lines until
/// somebody edits them, so that a million of them cost little more than their characters.
class PointRows {
public:
  /// What a table's limits count: rows as they are, or the points among the lines of a file.
  enum class Counted { Rows, Points };

  /// What stands in the rows at a moment. Copies share it, so that one costs nothing until the rows
  /// change, and then four bytes a row.
  struct State {
    LineStore lines;
    QVector<int> places; ///< of each row its line, or else its key among the edited ones
  };
  /// What one step has made of the rows: those from `first` on that were `before` are `after`.
  /// Lines are set where all rows were replaced.
  struct Change {
    int first = 0;
    QVector<int> before;
    QVector<int> after;
    std::optional<std::pair<LineStore, LineStore>> lines;

    bool isEmpty() const { return before == after && !lines; }
  };

  explicit PointRows(Counted counted = Counted::Rows) : m_counted(counted) {}

  State state() const { return {m_lines, m_places}; }
  Change changeSince(const State& before) const;
  /// Whether what the change has made, or has replaced, can stand there.
  bool fits(const Change& change, bool isUndone) const;
  /// Puts in what stood there before or after a change; rows around it are as they were then.
  void apply(const Change& change, bool isUndone);
  /// Frees the rows that only a dropped change could have brought back.
  void forget(const Change& change, bool isUndone);

  Counted counted() const { return m_counted; }
  int count() const { return m_places.size(); }
  PointRow at(int row) const; ///< a blank one where there is none
  bool hasCell(int row, int column) const;
  bool isSelectable(int row, int column) const;

  /// A row for each line; lines with a message become rows at fault.
  void setLines(const LineStore& lines, const SyntaxMessages& messages);
  /// Whether the rows are, without any at fault, what they would be of these lines.
  bool readAs(const LineStore& lines) const;
  void insert(int first, int rows) { m_places.insert(first, rows, blankPlace); } ///< blank ones
  void remove(int first, int rows);
  void set(int row, const PointRow& value);
  void setText(int row, int column, const QString& text);
  /// Makes a row what its cells, just edited, say: comment or point. Returns whether it has become
  /// another; a row at fault always does.
  bool adapt(int row);

  /// Rows from `first` to the one before the first that has an empty cell.
  int completeRows(int first = 0) const;
  int filledRowsFrom(int row) const;     ///< from there on, those that have a text
  PwlPoints points(int first = 0) const; ///< of the complete rows
  /// Points with both cells filled, wherever they stand; not more than `most` are looked for.
  int countPoints(int most = std::numeric_limits<int>::max()) const;
  int rowsInUse() const;    ///< up to the last that is a comment or has both cells filled
  int startDataRow() const; ///< the first one; -1 where there is none
  /// The row as a line of a file, with `separator` between the fields. A comment that nobody has
  /// edited comes back byte for byte, in whatever encoding it is.
  QByteArray lineAt(int row, const QString& separator) const;

  bool mayInsert(int rows, int most) const;
  bool mayDelete(int least) const; ///< whether there are points to spare
  /// A start data line cannot be taken away.
  bool isRemovable(int first, int rows) const;
  int faultFrom(int row,
                int step) const; ///< the next at fault from there on; -1 where there is none

private:
  static constexpr int blankPlace = -1;

  bool isLine(int row) const { return m_places.value(row, blankPlace) >= 0; }
  std::string_view lineOf(int row) const { return m_lines.at(m_places.at(row)); }
  PointRow::Kind kindAt(int row) const;
  PointRow shapeOf(int row) const; ///< its kind and whether it is at fault
  bool isPoint(int row) const;

  Counted m_counted;
  LineStore m_lines;
  QVector<int> m_places; ///< of each row its line, or else its key among the edited ones
  /// By keys below `blankPlace`. A row that is edited again gets a new one, so that the places tell
  /// what stood in it before.
  QHash<int, PointRow> m_edited;
  int m_lastKey = blankPlace;
};
