#pragma once

#include <QString>

/// What the energy-storage conversion remembers between calls, as texts.
struct ConversionMemory {
  QString input;      ///< points of the data sheet, x and y in turn, with single blanks between
  QString output;     ///< points of charge or flux linkage, in the same form
  QString limitFlag;  ///< "1" where x is limited, else "0"
  QString limitValue; ///< a number
};

/// Reads the four fields, with "|" between; missing ones are empty. An empty text is the memory of
/// a conversion that has not been made yet.
ConversionMemory readConversionMemory(const QString& text);
QString writeConversionMemory(const ConversionMemory& memory);
