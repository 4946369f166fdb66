#include "HostSupport/Parsing.h"

#include "AsciiText.h"

#include <cstring>

namespace {

YString piece(const char* start, const char* end) {
  return YString(start, static_cast<std::size_t>(end - start));
}

} // namespace

int sp_SplitLine(const char* text, char separator, YArray<YString>* out, int maxFields) {
  out->clear();
  if (!text)
    text = "";
  const char* const end = text + std::strlen(text);
  while (maxFields <= 0 || out->count() < maxFields - 1) {
    const void* found = std::memchr(text, separator, static_cast<std::size_t>(end - text));
    if (!found)
      break;
    const char* stop = static_cast<const char*>(found);
    out->append(piece(text, stop));
    text = stop + 1;
  }
  out->append(piece(text, end));
  return out->count();
}

int sp_ScanLine(const char* text, const char* delimiters, YArray<YString>* out, int maxFields) {
  out->clear();
  if (!text)
    return 0;
  const ByteSet isDelimiter(delimiters);
  const char* end = text + std::strlen(text);
  while (end != text && isDelimiter[end[-1]])
    --end;
  while (text != end) {
    if (isDelimiter[*text]) {
      ++text;
      continue;
    }
    const char* stop = text;
    if (maxFields > 0 && out->count() == maxFields - 1)
      stop = end;
    while (stop != end && !isDelimiter[*stop])
      ++stop;
    out->append(piece(text, stop));
    text = stop;
  }
  return out->count();
}

bool sp_GetToken(const char** cursor, YString* token, const char* delimiters, const char* extra,
                 const char* stopAt, bool) {
  *token = YString();
  if (!cursor || !*cursor)
    return false;
  const ByteSet isDelimiter(delimiters);
  const ByteSet isExtra(extra);
  const ByteSet isStop(stopAt);
  const char* start = *cursor;
  while (*start && isDelimiter[*start] && !isStop[*start])
    ++start;
  const char* end = start;
  if (*end && !isStop[*end]) {
    if (isExtra[*end])
      ++end;
    else
      while (*end && !isDelimiter[*end] && !isExtra[*end] && !isStop[*end])
        ++end;
  }
  *cursor = end;
  *token = piece(start, end);
  return end != start;
}
