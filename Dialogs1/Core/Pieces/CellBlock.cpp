#include "Core/Pieces/CellBlock.h"

QVector<QStringList> cellsOfBlock(const QString& text) {
  QStringList lines = text.split(QLatin1Char('\n'));
  if (lines.last().isEmpty())
    lines.removeLast(); // a line break ends the last row
  const QChar separator = text.contains(QLatin1Char('\t')) ? QLatin1Char('\t') : QLatin1Char(',');
  QVector<QStringList> rows;
  rows.reserve(lines.size());
  for (QString& line : lines) {
    if (line.endsWith(QLatin1Char('\r')))
      line.chop(1);
    QStringList cells = line.split(separator);
    for (QString& cell : cells)
      cell = cell.trimmed();
    rows.append(cells);
  }
  return rows;
}
