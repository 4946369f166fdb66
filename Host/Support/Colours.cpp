#include "HostSupport/Colours.h"

#include "HostSupport/Numbers.h"

#include <QColor>

namespace {

bool readNumber(const YString& text, int* colour) {
  double value = 0;
  if (!sp_IsEngNumber(text, &value) || !(value >= 0 && value <= 0xFFFFFF))
    return false;
  *colour = static_cast<int>(value);
  return true;
}

} // namespace

bool sp_ReadColour(const YString& text, int* colour) {
  QColor named;
  named.setNamedColor(QString::fromUtf8(text.c_str()));
  if (!named.isValid() || named == QColor(Qt::transparent)) // which is no colour
    return readNumber(text, colour);
  *colour = named.red() | named.green() << 8 | named.blue() << 16;
  return true;
}
