#include "HostSupport/DigitalSource.h"

#include "AsciiText.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr char stateTexts[digitalStateCount][3] = {"0s", "1s", "Us", "0r", "1r", "Ur",
                                                   "0z", "1z", "Uz", "0u", "1u", "Uu"};
constexpr signed char noMeaning = -1;

/// What each byte means; tables, since there are millions of them to read.
struct Bytes {
  bool separates[256] = {};
  bool endsField[256] = {};
  signed char value[256] = {};
  signed char strength[256] = {};

  constexpr Bytes() {
    for (int c = 0; c < 256; ++c) {
      const char byte = static_cast<char>(c);
      const bool endsLine = byte == '\n' || byte == '\r' || byte == '\0';
      separates[c] = byte == ',' || (isBlank(byte) && !endsLine);
      endsField[c] = separates[c] || endsLine;
      value[c] = strength[c] = noMeaning;
      for (signed char i = 0; i < 3; ++i)
        if (asciiLower(byte) == "01u"[i])
          value[c] = i;
      for (signed char i = 0; i < 4; ++i)
        if (asciiLower(byte) == "srzu"[i])
          strength[c] = i;
    }
  }
};
constexpr Bytes bytes;

constexpr std::size_t indexOf(char c) {
  return static_cast<unsigned char>(c);
}

const char* skipSeparators(const char* at) {
  while (bytes.separates[indexOf(*at)])
    ++at;
  return at;
}

bool isLineEnd(char c) {
  return c == '\n' || c == '\r';
}

/// The first field of the row that stands at `at` or below; null where there is none.
const char* findRow(const char* at) {
  for (;;) {
    at = skipSeparators(at);
    if (*at == '*')
      at += std::strcspn(at, "\r\n");
    if (!isLineEnd(*at))
      return *at ? at : nullptr;
    ++at;
  }
}

class Reader {
public:
  Reader(const char* text, const Source_Table_Info_t& info)
      : m_text(text), m_at(text), m_columns(std::max(info.columns, 0)),
        m_points(std::max(info.points, 0)) {}

  bool read(unsigned char* states, double* times) {
    for (int point = 0; point < m_points; ++point) {
      double time = 0;
      if (!enterRow(point) || !readTime(&time) || !readStates(states))
        return false;
      if (times)
        *times++ = time;
      if (states)
        states += m_columns;
    }
    const char* surplus = findRow(m_at);
    if (surplus)
      m_at = surplus;
    return !surplus || fail("no more than %d times", m_points);
  }

  /// "line 3, column 7: expected …"
  YString fault() const {
    int line = 1;
    const char* lineStart = m_text;
    for (const char* c = m_text; c != m_at; ++c)
      if (*c == '\n' || (*c == '\r' && c[1] != '\n')) {
        ++line;
        lineStart = c + 1;
      }
    const auto startsCharacter = [](char c) { return (c & 0xC0) != 0x80; };
    const auto column = 1 + std::count_if(lineStart, m_at, startsCharacter);
    char buffer[200];
    sp_sprintf(buffer, sizeof buffer, "line %d, column %d: expected %s", line,
               static_cast<std::int64_t>(column), m_expected);
    return buffer;
  }

private:
  bool enterRow(int point) {
    const char* row = findRow(m_at);
    if (row) {
      m_at = row;
      return true;
    }
    m_at += std::strlen(m_at);
    return fail("%d times, not %d", m_points, point);
  }

  bool readTime(double* time) {
    char* end = nullptr;
    const double value = sp_ConvertEngToReal(m_at, &end);
    if (end == m_at || !bytes.endsField[indexOf(*end)])
      return fail("a time, such as 12.5n or 1.25e-8");
    if (value < 0 || !std::isfinite(value))
      return fail("a finite time from 0 on");
    if (value <= m_lastTime)
      return fail("a time later than %s", sp_ConvertRealToJSEng(m_lastTime, timeDigits));
    m_at = end;
    m_lastTime = *time = value + 0.0; // no negative zero
    return true;
  }

  bool readStates(unsigned char* codes) {
    const char* at = m_at;
    for (int column = 0; column < m_columns; ++column) {
      at = skipSeparators(at);
      const int value = bytes.value[indexOf(at[0])];
      if (value == noMeaning)
        return failAt(at, column);
      const int strength = bytes.strength[indexOf(at[1])];
      if (strength == noMeaning || !bytes.endsField[indexOf(at[2])])
        return failAt(at, column);
      at += 2;
      if (codes)
        *codes++ = digitalCode({value, strength});
    }
    m_at = skipSeparators(at);
    return !*m_at || isLineEnd(*m_at) || fail("the end of the line after %d outputs", m_columns);
  }

  /// Says which character of the state at `at` is wrong.
  bool failAt(const char* at, int column) {
    m_at = at;
    if (!*at || isLineEnd(*at))
      return fail("the state of output %d of %d", column + 1, m_columns);
    if (bytes.value[indexOf(at[0])] == noMeaning)
      return fail("the value 0, 1 or U of output %d", column + 1);
    ++m_at;
    if (bytes.strength[indexOf(at[1])] == noMeaning)
      return fail("the strength s, r, z or u of output %d", column + 1);
    ++m_at;
    return fail("a blank, a tab or a comma behind the state of output %d", column + 1);
  }

  bool fail(const char* expected, PrintfArg a = {}, PrintfArg b = {}) {
    sp_sprintf(m_expected, sizeof m_expected, expected, a, b);
    return false;
  }

  static constexpr int timeDigits = 15;
  const char* m_text;
  const char* m_at;
  int m_columns;
  int m_points;
  double m_lastTime = -1;
  char m_expected[120] = "";
};

} // namespace

const char* DigitalSource::GetStateString(Digital_t state) {
  constexpr int unknown = 2;
  constexpr int undetermined = 3;
  if (state.value < 0 || state.value > unknown)
    state.value = unknown;
  if (state.strength < 0 || state.strength > undetermined)
    state.strength = undetermined;
  return stateTexts[digitalCode(state)];
}

int DigitalSource::GetNumColumns(const char* text) {
  const char* field = text ? findRow(text) : nullptr;
  if (!field)
    return 0;
  int columns = -1; // the time is none
  for (; *field && !isLineEnd(*field); field = skipSeparators(field)) {
    while (!bytes.endsField[indexOf(*field)])
      ++field;
    if (columns < std::numeric_limits<int>::max())
      ++columns;
  }
  return columns;
}

int DigitalSource::GetNumPoints(const char* text) {
  int points = 0;
  for (const char* row = text ? findRow(text) : nullptr;
       row && points < std::numeric_limits<int>::max(); row = findRow(row)) {
    row += std::strcspn(row, "\r\n");
    ++points;
  }
  return points;
}

int DigitalSource::ReadSource(const char* text, unsigned char* states, double* times,
                              const Source_Table_Info_t& info, YString* error) {
  Reader reader(text ? text : "", info);
  if (reader.read(states, times))
    return 0;
  if (error)
    *error = reader.fault();
  return 1;
}
