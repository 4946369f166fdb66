#include "Core/Pieces/FontSpec.h"

#include "HostSupport/Parsing.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

constexpr char blanks[] = " \t\n\v\f\r";
// 64 bits have 19 digits, a sign and four flags; the semicolons come on top.
constexpr int longestNumbers = 64;

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

/// Takes the fields off the front of a text, one after the other.
class FieldReader {
public:
  explicit FieldReader(const char* text)
      : m_rest(text), m_hasSemicolons(std::strchr(text, ';') != nullptr) {}

  /// False where no number stands; nothing is read from then on.
  bool number(std::int64_t* value) {
    if (!m_isFirst && !skipSeparator())
      return false;
    m_isFirst = false;
    char* end = nullptr;
    const long long read = std::strtoll(m_rest, &end, 10);
    m_isBroken = end == m_rest;
    m_rest = end;
    if (!m_isBroken)
      *value = read;
    return !m_isBroken;
  }

  YString rest() {
    return skipSeparator() ? YString(m_rest, std::strcspn(m_rest, "'")) : YString();
  }

private:
  bool skipSeparator() {
    if (m_isBroken)
      return false;
    if (!m_hasSemicolons)
      m_rest += std::strspn(m_rest, blanks);
    else if (*m_rest == ';')
      ++m_rest;
    else
      m_isBroken = true;
    return !m_isBroken;
  }

  const char* m_rest;
  bool m_hasSemicolons;
  bool m_isFirst = true;
  bool m_isBroken = false;
};

int positiveSize(std::int64_t size) {
  constexpr std::int64_t largest = std::numeric_limits<int>::max();
  return static_cast<int>(std::abs(std::clamp(size, -largest, largest)));
}

} // namespace

bool isFontSpec(const char* text) {
  return text && (*text == '-' || isDigit(*text));
}

FontSpec readFontSpec(const char* text) {
  FieldReader fields(text ? text : "");
  FontSpec font;
  std::int64_t value = 0;
  if (fields.number(&value))
    font.pointSize = positiveSize(value);
  for (bool* flag : {&font.isBold, &font.isItalic, &font.isUnderlined, &font.isStruckOut})
    if (fields.number(&value))
      *flag = value != 0;
  fields.number(&font.colour);
  font.family = fields.rest();
  return font;
}

YString writeFontSpec(const FontSpec& font) {
  char numbers[longestNumbers];
  sp_sprintf(numbers, sizeof numbers, "%d;%d;%d;%d", font.pointSize, font.isBold, font.isItalic,
             font.isUnderlined);
  return YString(numbers)
      .concat(font.isStruckOut ? ";1;" : ";0;")
      .concat(YString(font.colour))
      .concat(";")
      .concat(font.family);
}
