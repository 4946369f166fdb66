#pragma once

#include "Core/Frame/Texts.h"

/// How a table of rows to choose from is shown, as a script's words say.
struct TableOptions {
  bool hasRowNumbers = true;
  bool hasHeader = true;
  bool isExclusive = false; ///< one row at most is chosen
  QString highlight = QStringLiteral("none");

  TableOptions() = default;
  explicit TableOptions(const Texts& words);
};

/// A table that a script passes as lines of cells with semicolons between, the first one its header
/// unless there is none. Every row is as long as the longest line. A row has 200 cells at most;
/// what goes beyond stands in the last one.
class SelectionTable {
public:
  SelectionTable() = default;
  SelectionTable(const Texts& lines, bool hasHeader);

  const QStringList& header() const { return m_header; } ///< empty where there is none
  const QList<QStringList>& rows() const { return m_rows; }
  int width() const { return m_width; } ///< cells of a row

private:
  QStringList m_header;
  QList<QStringList> m_rows;
  int m_width = 0;
};

/// What tells one table from another that has no caption, either: its lines from the last to the
/// first, a "_" before each.
YString tableKey(const Texts& lines);
