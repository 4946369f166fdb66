#include "Pwl/PointNotes.h"

static constexpr int longestQuote = 40; // characters

namespace {

/// A count in words; %1 of both stands for it.
QString counted(int count, const QString& one, const QString& many) {
  return (count == 1 ? one : many).arg(count);
}

} // namespace

QString PointNotes::pointsRead(int points, int textsLeftOut) {
  const QString read = counted(points, tr("%1 point read."), tr("%1 points read."));
  return textsLeftOut > 0
             ? read + QLatin1Char(' ') + tr("A last text without a partner was left out.")
             : read;
}

QString PointNotes::linesRead(int lines) {
  return counted(lines, tr("%1 line read."), tr("%1 lines read."));
}

QString PointNotes::numbersTaken(int textsAsZero, int textsCut) {
  QStringList said;
  if (textsAsZero > 0)
    said += counted(textsAsZero, tr("%1 text is not a number and has become 0."),
                    tr("%1 texts are not numbers and have become 0."));
  if (textsCut > 0)
    said += counted(textsCut, tr("%1 text was cut behind its digits: suffixes are not read here."),
                    tr("%1 texts were cut behind their digits: suffixes are not read here."));
  return said.join(QLatin1Char(' '));
}

QString PointNotes::rowsPasted(const CellBlock& block, int cellsLeftOut) {
  QStringList said = {counted(block.rows.size(), tr("%1 row pasted."), tr("%1 rows pasted."))};
  if (block.hadHeading)
    said += tr("A heading was left out.");
  if (block.startLines > 0)
    said += tr("A START_DATA line was left out.");
  if (cellsLeftOut > 0)
    said += counted(cellsLeftOut, tr("%1 cell was left out."), tr("%1 cells were left out."));
  return said.join(QLatin1Char(' '));
}

QString PointNotes::decimalComma(const QString& number) {
  return tr("Nothing was pasted: “%1” has a decimal comma. Numbers need a decimal point.")
      .arg(number.size() > longestQuote ? number.left(longestQuote - 1) + QChar(0x2026) : number);
}

QString PointNotes::rowsBehind(int gap, int rows) {
  return counted(
             rows,
             tr("%1 row below row %2 is not part of the curve, since that has an empty cell."),
             tr("%1 rows below row %2 are not part of the curve, since that has an empty cell."))
      .arg(gap + 1);
}

QString PointNotes::textsAsZero(int texts) {
  return counted(texts, tr("%1 text is not a number and counts as 0."),
                 tr("%1 texts are not numbers and count as 0."));
}
