#pragma once

#include <QStringList>
#include <QVector>

/// What a spreadsheet or a list has put on the clipboard, as rows of cells.
struct CellBlock {
  QVector<QStringList> rows;
  bool hadHeading = false; ///< a first row of words above numbers, which is left out
  QString decimalComma;    ///< a number that is written with one; empty where there is none

  int cells() const; ///< of all rows
};

/// Reads a block: rows end with a line break; cells are separated by tabs, where there is none by
/// semicolons, else by commas outside of braces, else two values by blanks. A cell may be quoted,
/// with quotes inside doubled. A comment or start data line of a points file is one cell.
CellBlock cellsOfBlock(const QString& text);
