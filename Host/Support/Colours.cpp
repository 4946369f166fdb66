#include "HostSupport/Colours.h"

#include "HostSupport/Parsing.h"

#include <QColor>

#include <charconv>

namespace {

bool readNumber(const YString& text, int* colour) {
  const char* const end = text.c_str() + text.length();
  int value = 0;
  const auto [stop, error] = std::from_chars(text.c_str(), end, value);
  if (error != std::errc() || stop != end || value < 0 || value > 0xFFFFFF)
    return false;
  *colour = value;
  return true;
}

} // namespace

bool sp_ReadColour(const YString& text, int* colour) {
  QColor named;
  named.setNamedColor(QString::fromUtf8(text.c_str()));
  if (!named.isValid() || sp_CompareNoCase(text, "transparent") == 0)
    return readNumber(text, colour);
  *colour = named.red() | named.green() << 8 | named.blue() << 16;
  return true;
}
