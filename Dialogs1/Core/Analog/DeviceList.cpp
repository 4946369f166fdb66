#include "Core/Analog/DeviceList.h"

#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include <cstring>

namespace {

/// Bytes of the first character of a text.
std::size_t firstCharacter(const char* text) {
  std::size_t length = *text ? 1 : 0;
  while (length > 0 && (text[length] & 0xC0) == 0x80)
    ++length;
  return length;
}

bool isComment(const char* line, const char* marker, std::size_t length) {
  return length > 0 ? std::strncmp(line, marker, length) == 0 : !*line;
}

/// Reads the numbers where they stand: reading one stops at the semicolon behind it.
DeviceList::Values valuesOf(const char* line) {
  DeviceList::Values values{};
  for (double& value : values) {
    line = std::strchr(line, ';');
    if (!line)
      break;
    value = sp_ConvertEngToReal(++line);
  }
  return values;
}

YString trimmed(YString text) {
  return text.stripLeading(" \t").stripTrailing(" \t");
}

} // namespace

ValueRange readRange(const YString& text) {
  const YString range = trimmed(text);
  if (range.isEmpty() || sp_CompareNoCase(range, "all") == 0)
    return {};
  YArray<YString> ends;
  sp_SplitLine(range, '-', &ends, 2);
  const YString high = trimmed(ends.value(1));
  return {sp_ConvertEngToReal(ends.value(0)),
          sp_CompareNoCase(high, "inf") == 0 ? ValueRange().high : sp_ConvertEngToReal(high)};
}

DeviceList::DeviceList(const Texts& lines, const char* marker) : m_lines(lines) {
  const std::size_t length = firstCharacter(marker);
  for (unsigned line = 0; line < lines.count(); ++line)
    if (!isComment(lines.raw(line), marker, length))
      m_devices.push_back({static_cast<int>(line), valuesOf(lines.raw(line))});
}

std::vector<int> DeviceList::within(const Ranges& ranges) const {
  std::vector<int> lines;
  for (const Device& device : m_devices) {
    bool isWithin = true;
    for (std::size_t i = 0; i < ranges.size(); ++i)
      isWithin = isWithin && ranges[i].contains(device.values[i]);
    if (isWithin)
      lines.push_back(device.line);
  }
  return lines;
}

QStringList DeviceList::fields(int line) const {
  YArray<YString> fields;
  sp_SplitLine(m_lines.raw(static_cast<unsigned>(line)), ';', &fields, fieldCount);
  QStringList texts;
  for (const YString& field : fields)
    texts.append(QString::fromUtf8(field.c_str()));
  return texts;
}
