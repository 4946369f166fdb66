#include "Pwl/PointNotes.h"

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

QString PointNotes::rowsPasted(int rows, bool leftHeadingOut, int cellsLeftOut) {
  QStringList said = {counted(rows, tr("%1 row pasted."), tr("%1 rows pasted."))};
  if (leftHeadingOut)
    said += tr("A heading was left out.");
  if (cellsLeftOut > 0)
    said += counted(cellsLeftOut, tr("%1 cell was left out."), tr("%1 cells were left out."));
  return said.join(QLatin1Char(' '));
}

QString PointNotes::decimalComma(const QString& number) {
  return tr("Nothing was pasted: “%1” has a decimal comma. Numbers need a decimal point.")
      .arg(number);
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
