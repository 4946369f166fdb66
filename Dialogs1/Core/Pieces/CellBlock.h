#pragma once

#include <QStringList>
#include <QVector>

/// What a spreadsheet or a list has put on the clipboard, as rows of cells.
struct CellBlock {
  QVector<QStringList> rows;
  bool hadHeading = false; ///< a first row of words above numbers, which is left out
  int startLines = 0;      ///< start data lines of a points file, which are left out
  QString decimalComma;    ///< a number that is written with one; empty where there is none

  int cells() const; ///< of all rows
};

/// Whether a cell is a comment of a points file, which takes its whole row.
bool isCommentCell(const QString& cell);

/// Reads a block: rows end with a line break; cells are separated by tabs, where there is none by
/// semicolons, else by commas, and in a row without any by blanks, if it begins with two values.
/// What stands in braces or quotes separates nothing. A cell may be quoted as a whole, with quotes
/// inside doubled. A comment of a points file is one cell.
CellBlock cellsOfBlock(const QString& text);
