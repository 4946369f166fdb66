#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include "AsciiText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

namespace {

/// Writes into a buffer of a fixed size and notes whether all of it fitted.
class BoundedText {
public:
  BoundedText(char* buffer, std::size_t capacity) : m_next(buffer), m_end(buffer + capacity) {}
  void append(char c) {
    if (m_next != m_end)
      *m_next++ = c;
    else
      m_isCut = true;
  }
  void append(std::string_view text) {
    const std::size_t fitting = std::min(text.size(), room());
    std::memcpy(m_next, text.data(), fitting);
    m_next += fitting;
    m_isCut = m_isCut || fitting < text.size();
  }
  void fill(char c, std::size_t count) {
    const std::size_t fitting = std::min(count, room());
    std::memset(m_next, c, fitting);
    m_next += fitting;
    m_isCut = m_isCut || fitting < count;
  }
  std::size_t room() const { return static_cast<std::size_t>(m_end - m_next); }
  bool isCut() const { return m_isCut; }
  char* next() const { return m_next; }

private:
  char* m_next;
  char* m_end;
  bool m_isCut = false;
};

struct Conversion {
  bool left = false;
  bool plus = false;
  bool space = false;
  bool alternative = false;
  bool zeros = false;
  std::size_t width = 0;
  int precision = -1;
  int bits = 0; // 0: those of the value's type
  char kind = 0;
};

/// Reads a count at `*format`; one that is beyond `limit` counts as that.
int readCount(const char** format, int limit) {
  int count = 0;
  for (; isAsciiDigit(**format); ++*format)
    count = count < limit ? count * 10 + (**format - '0') : limit;
  return std::min(count, limit);
}

/// Reads what a format says of an integer's size, 0 where it leaves that to the value.
int readBits(const char** format) {
  const char first = **format;
  int letters = 0;
  for (; **format && std::strchr("hlLjztq", **format); ++*format)
    ++letters;
  if (letters == 0 || (first == 'l' && letters == 1))
    return 0;
  return first != 'h' ? 64 : letters == 1 ? 16 : 8;
}

/// Reads what follows a percent sign; false where that is no conversion.
bool readConversion(const char** format, int limit, Conversion* conversion) {
  const char* next = *format;
  for (;; ++next) {
    if (*next == '-')
      conversion->left = true;
    else if (*next == '+')
      conversion->plus = true;
    else if (*next == ' ')
      conversion->space = true;
    else if (*next == '#')
      conversion->alternative = true;
    else if (*next == '0')
      conversion->zeros = true;
    else
      break;
  }
  conversion->width = static_cast<std::size_t>(readCount(&next, limit));
  if (*next == '.') {
    ++next;
    conversion->precision = readCount(&next, limit);
  }
  conversion->bits = readBits(&next);
  if (!*next || !std::strchr("diuoxXcfFeEgGs", *next))
    return false;
  conversion->kind = *next;
  *format = next + 1;
  return true;
}

double realOf(const PrintfArg& argument) {
  switch (argument.kind) {
  case PrintfArg::Kind::Integer:
    return static_cast<double>(argument.integer);
  case PrintfArg::Kind::Unsigned:
    return static_cast<double>(static_cast<std::uint64_t>(argument.integer));
  case PrintfArg::Kind::Real:
    return argument.real;
  case PrintfArg::Kind::Text:
    return sp_ConvertEngToReal(argument.text);
  case PrintfArg::Kind::None:
    break;
  }
  return 0;
}

std::int64_t integerOf(const PrintfArg& argument) {
  if (argument.kind == PrintfArg::Kind::Integer || argument.kind == PrintfArg::Kind::Unsigned)
    return argument.integer;
  const double value = realOf(argument);
  if (std::isnan(value))
    return 0;
  if (value >= 9223372036854775807.0)
    return std::numeric_limits<std::int64_t>::max();
  if (value <= -9223372036854775808.0)
    return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

YString textOf(const PrintfArg& argument) {
  switch (argument.kind) {
  case PrintfArg::Kind::Integer:
    return YString(argument.integer);
  case PrintfArg::Kind::Unsigned:
    return YString(static_cast<std::uint64_t>(argument.integer));
  case PrintfArg::Kind::Real:
    return YString(argument.real);
  case PrintfArg::Kind::Text:
    return YString(argument.text);
  case PrintfArg::Kind::None:
    break;
  }
  return YString();
}

void toUpper(std::string* text) {
  for (char& c : *text)
    if (isAsciiLetter(c))
      c = static_cast<char>(c & ~0x20);
}

/// A number's digits and what stands before any zeros that fill its width.
struct NumberText {
  std::string prefix;
  std::string digits;
};

const char* signOf(const Conversion& conversion, bool negative) {
  return negative ? "-" : conversion.plus ? "+" : conversion.space ? " " : "";
}

int baseOf(char kind) {
  return asciiLower(kind) == 'x' ? 16 : kind == 'o' ? 8 : 10;
}

/// The lowest `bits` of a word, extended by zeros or by their sign.
std::uint64_t lowBits(std::uint64_t word, int bits, bool isSigned) {
  const int rest = 64 - bits;
  const std::uint64_t high = word << rest;
  return isSigned ? static_cast<std::uint64_t>(static_cast<std::int64_t>(high) >> rest)
                  : high >> rest;
}

NumberText textOfInteger(const Conversion& conversion, const PrintfArg& argument) {
  const bool isSigned = conversion.kind == 'd' || conversion.kind == 'i';
  const int base = baseOf(conversion.kind);
  // With a sign all of a value is shown unless the format makes it smaller.
  const int bits = conversion.bits ? conversion.bits : isSigned ? 64 : argument.bits;
  const std::uint64_t word =
      lowBits(static_cast<std::uint64_t>(integerOf(argument)), bits, isSigned);
  const bool negative = isSigned && static_cast<std::int64_t>(word) < 0;
  NumberText text;
  if (isSigned)
    text.prefix = signOf(conversion, negative);
  else if (base == 16 && conversion.alternative && word != 0)
    text.prefix = "0x";
  char digits[24];
  const char* end =
      std::to_chars(digits, digits + sizeof digits, negative ? 0 - word : word, base).ptr;
  text.digits.assign(digits, static_cast<std::size_t>(end - digits));
  const auto wanted = static_cast<std::size_t>(std::max(conversion.precision, 0));
  if (text.digits.size() < wanted)
    text.digits.insert(0, wanted - text.digits.size(), '0');
  if (base == 8 && conversion.alternative && text.digits[0] != '0')
    text.digits.insert(0, 1, '0');
  return text;
}

NumberText textOfReal(const Conversion& conversion, double value) {
  const char kind = asciiLower(conversion.kind);
  const int precision = conversion.precision < 0 ? 6 : conversion.precision;
  const std::chars_format format = kind == 'f'   ? std::chars_format::fixed
                                   : kind == 'e' ? std::chars_format::scientific
                                                 : std::chars_format::general;
  constexpr std::size_t mostPlaces = 330; // of a double before its point, and its exponent
  std::string digits(static_cast<std::size_t>(precision) + mostPlaces, '\0');
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), std::fabs(value),
                                  format, precision)
                        .ptr;
  digits.resize(static_cast<std::size_t>(end - digits.data()));
  return {signOf(conversion, std::signbit(value) && !std::isnan(value)), std::move(digits)};
}

void printText(const Conversion& conversion, const PrintfArg& argument, BoundedText* out) {
  YString text = textOf(argument);
  if (conversion.kind == 'c' && argument.kind != PrintfArg::Kind::Text &&
      argument.kind != PrintfArg::Kind::None) {
    const char c = static_cast<char>(integerOf(argument));
    text = YString(&c, 1);
  }
  std::string_view shown(text.c_str(), text.length());
  if (conversion.kind == 'c')
    shown = shown.substr(0, 1);
  else if (conversion.precision >= 0)
    shown = shown.substr(0, static_cast<std::size_t>(conversion.precision));
  const std::size_t padding = conversion.width - std::min(conversion.width, shown.size());
  if (!conversion.left)
    out->fill(' ', padding);
  out->append(shown);
  if (conversion.left)
    out->fill(' ', padding);
}

void printNumber(const Conversion& conversion, const PrintfArg& argument, BoundedText* out) {
  const bool isInteger = std::strchr("diuoxX", conversion.kind) != nullptr;
  NumberText text =
      isInteger ? textOfInteger(conversion, argument) : textOfReal(conversion, realOf(argument));
  if (conversion.kind >= 'A' && conversion.kind <= 'Z') {
    toUpper(&text.prefix);
    toUpper(&text.digits);
  }
  const std::size_t length = text.prefix.size() + text.digits.size();
  const std::size_t padding = conversion.width - std::min(conversion.width, length);
  const bool zeros = conversion.zeros && !conversion.left &&
                     (isInteger ? conversion.precision < 0 : isAsciiDigit(text.digits[0]));
  if (!conversion.left && !zeros)
    out->fill(' ', padding);
  out->append(text.prefix);
  if (zeros)
    out->fill('0', padding);
  out->append(text.digits);
  if (conversion.left)
    out->fill(' ', padding);
}

/// Takes back a UTF-8 sequence that a cut has left unfinished before `end`.
char* dropPartialCharacter(char* start, char* end) {
  char* lead = end;
  while (lead != start && end - lead < 3 && (lead[-1] & 0xC0) == 0x80)
    --lead;
  if (lead == start)
    return end;
  const auto first = static_cast<unsigned char>(lead[-1]);
  const int length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
  return end - (lead - 1) < length ? lead - 1 : end;
}

} // namespace

bool sp_sprintf(char* buffer, int size, const char* format, PrintfArg first, PrintfArg second,
                PrintfArg third, PrintfArg fourth) {
  if (!buffer || size <= 0)
    return false;
  const PrintfArg* const arguments[] = {&first, &second, &third, &fourth};
  const PrintfArg missing;
  std::size_t used = 0;
  BoundedText out(buffer, static_cast<std::size_t>(size - 1));
  for (const char* next = format ? format : ""; *next && !out.isCut();) {
    if (*next != '%') {
      out.append(*next++);
      continue;
    }
    ++next;
    Conversion conversion;
    // What is wider than the buffer is cut in any case.
    if (*next != '%' && readConversion(&next, size, &conversion)) {
      const PrintfArg& argument = used < std::size(arguments) ? *arguments[used++] : missing;
      const bool isText = conversion.kind == 's' || conversion.kind == 'c' ||
                          argument.kind == PrintfArg::Kind::None;
      if (isText)
        printText(conversion, argument, &out);
      else
        printNumber(conversion, argument, &out);
    } else {
      out.append('%');
      next += *next == '%';
    }
  }
  char* end = out.isCut() ? dropPartialCharacter(buffer, out.next()) : out.next();
  *end = '\0';
  return !out.isCut();
}
