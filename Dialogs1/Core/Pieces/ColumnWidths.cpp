#include "Core/Pieces/ColumnWidths.h"

#include "HostSupport/Parsing.h"

#include <QByteArray>

// A narrower column cannot be caught with the mouse; no screen shows a wider one.
static constexpr int leastWidth = 8;
static constexpr int largestWidth = 10000;

YString writeColumnWidths(const std::vector<int>& widths) {
  YString text;
  for (int width : widths)
    text = text.concat(text.isEmpty() ? "" : " ").concat(YString(width));
  return text;
}

std::vector<int> readColumnWidths(const char* text, int count) {
  YArray<YString> fields;
  if (sp_ScanLine(text, " ", &fields, count + 1) != count)
    return {};
  std::vector<int> widths;
  for (const YString& field : fields) {
    bool isNumber = false;
    const int width = QByteArray(field.c_str()).toInt(&isNumber);
    if (!isNumber || width < leastWidth || width > largestWidth)
      return {};
    widths.push_back(width);
  }
  return widths;
}
