#pragma once

#include <QCoreApplication>

/// What the line under a point table says.
class PointNotes {
  Q_DECLARE_TR_FUNCTIONS(PointNotes)

public:
  /// Of a paste of points, x and y in turn.
  static QString pointsRead(int points, int textsLeftOut);
  static QString linesRead(int lines);
  /// Of a paste of cells over those of the table.
  static QString rowsPasted(int rows, bool leftHeadingOut, int cellsLeftOut);
  static QString decimalComma(const QString& number);
  /// Of filled rows behind `gap`, the first row (from 0) with an empty cell.
  static QString rowsBehind(int gap, int rows);
  static QString textsAsZero(int texts);
};
