#include "Core/Pieces/AsWritten.h"

#include <QString>

static constexpr int writtenDigits = 15;

double asWritten(double value) {
  return QString::number(value, 'g', writtenDigits).toDouble();
}
