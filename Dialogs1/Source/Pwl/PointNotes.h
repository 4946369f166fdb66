#pragma once

#include "Core/Pieces/CellBlock.h"

#include <QCoreApplication>

/// What the line under a point table says.
class PointNotes {
  Q_DECLARE_TR_FUNCTIONS(PointNotes)

public:
  /// Of a paste of points, x and y in turn, from a text that was cut at blanks, commas and
  /// brackets.
  static QString pointsRead(int points, int textsLeftOut);
  /// Of a paste that took a number from each text: some held none, some went on behind it.
  static QString numbersTaken(int textsAsZero, int textsCut);
  static QString linesRead(int lines);
  /// Of a paste of cells over those of the table.
  static QString rowsPasted(const CellBlock& block, int cellsLeftOut);
  static QString decimalComma(const QString& number);
  /// Of filled rows below `gap`, the first row (from 0) with an empty cell.
  static QString rowsBehind(int gap, int rows);
  static QString textsAsZero(int texts);
};
