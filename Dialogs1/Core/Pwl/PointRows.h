#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/PointRow.h"
#include "Core/Pwl/PwlPoints.h"
#include "Core/Pwl/SyntaxMessages.h"

#include <QHash>
#include <QVector>

#include <limits>

/// The rows of a point table, and what may be done with them. The lines of a file stay lines until
/// somebody edits them, so that a million of them cost little more than their characters.
class PointRows {
public:
  /// What a table's limits count: rows as they are, or the points among the lines of a file.
  enum class Counted { Rows, Points };

  explicit PointRows(Counted counted = Counted::Rows) : m_counted(counted) {}

  int count() const { return m_places.size(); }
  PointRow at(int row) const; ///< a blank one where there is none
  bool hasCell(int row, int column) const;

  /// A row for each line; lines with a message become rows at fault.
  void setLines(const LineStore& lines, const SyntaxMessages& messages);
  void insert(int first, int rows) { m_places.insert(first, rows, blankPlace); } ///< blank ones
  void remove(int first, int rows);
  void set(int row, const PointRow& value);
  void setText(int row, int column, const QString& text);
  /// Makes a row what its first cell, just edited, says: comment or point. Returns whether it has
  /// become another; a row at fault always does.
  bool adapt(int row);

  /// Rows from `first` to the one before the first that has an empty cell.
  int completeRows(int first = 0) const;
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
  /// The start data line cannot be taken away.
  bool isRemovable(int first, int rows) const;

private:
  static constexpr int blankPlace = -1;

  bool isLine(int row) const { return m_places.value(row, blankPlace) >= 0; }
  std::string_view lineOf(int row) const { return m_lines.at(m_places.at(row)); }
  PointRow::Kind kindAt(int row) const;
  bool isPoint(int row) const;

  Counted m_counted;
  LineStore m_lines;
  QVector<int> m_places;         ///< of each row its line, or else its key among the edited ones
  QHash<int, PointRow> m_edited; ///< by keys below `blankPlace`
  int m_lastKey = blankPlace;
};
