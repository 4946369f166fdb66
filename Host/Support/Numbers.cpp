#include "HostSupport/Numbers.h"

#include "AsciiText.h"
#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr double exactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int largestExactPower = 22;
constexpr std::uint64_t exactIntegers = std::uint64_t(1) << 53;
constexpr int digitsOfWord = 19; // any number of so many digits fits 64 bits

// 767 digits tell any decimal text from the midpoint of two doubles; what follows only matters in
// that it is not all zeros.
constexpr int decisiveDigits = 770;

/// A decimal text taken apart: its digits as an integer, times 10^(`scale` - `fractionDigits`).
struct Decimal {
  bool negative = false;
  bool fitsWord = true; ///< else `word` is not to be used
  std::uint64_t word = 0;
  std::int64_t scale = 0;
  std::int64_t fractionDigits = 0;
  const char* digits = nullptr;
  const char* endDigits = nullptr;
};

constexpr std::int64_t exponentLimit = 1'000'000'000'000;

/// Reads "e-12" at `text` if it stands there whole; the exponent is limited to what any text of
/// digits before it could still bring back into range.
const char* readExponent(const char* text, std::int64_t* exponent) {
  const char* digits = text + 1;
  const bool negative = *digits == '-';
  if (*digits == '-' || *digits == '+')
    ++digits;
  if (!isAsciiDigit(*digits))
    return text;
  std::int64_t value = 0;
  for (; isAsciiDigit(*digits); ++digits)
    if (value < exponentLimit)
      value = value * 10 + (*digits - '0');
  *exponent += negative ? -value : value;
  return digits;
}

constexpr std::size_t byteOf(char c) {
  return static_cast<unsigned char>(c);
}

/// What a byte behind the digits means; tables, since readers of long lists live here.
struct TailBytes {
  signed char exponent[256] = {}; // of the suffix of one letter
  bool isUnit[256] = {};

  constexpr TailBytes() {
    constexpr struct {
      char letter;
      signed char exponent;
    } suffixes[] = {{'t', 12}, {'g', 9},   {'k', 3},   {'m', -3}, {'u', -6},
                    {'n', -9}, {'p', -12}, {'f', -15}, {'a', -18}};
    for (const auto& suffix : suffixes) {
      exponent[byteOf(suffix.letter)] = suffix.exponent;
      exponent[byteOf(suffix.letter) - 'a' + 'A'] = suffix.exponent;
    }
    for (int c = 0; c < 256; ++c)
      isUnit[c] = isAsciiLetter(static_cast<char>(c)) || c == '%' || c > 127;
  }
};
constexpr TailBytes tailBytes;

bool isUnit(char c) {
  return tailBytes.isUnit[static_cast<unsigned char>(c)];
}

/// Reads the suffix at `text`, if there is one, and the unit behind it.
const char* readTail(const char* text, std::int64_t* exponent) {
  const char first = *text;
  if (asciiLower(first) == 'm' && asciiLower(text[1]) == 'e' && asciiLower(text[2]) == 'g') {
    *exponent += 6;
    text += 3;
  } else {
    const bool isMicroSign = first == '\xC2' && text[1] == '\xB5';   // U+00B5
    const bool isGreekLetter = first == '\xCE' && text[1] == '\xBC'; // U+03BC
    *exponent += isMicroSign || isGreekLetter ? -6 : tailBytes.exponent[byteOf(first)];
    text += isUnit(first); // no branch: whether there is a suffix cannot be guessed
  }
  while (isUnit(*text))
    ++text;
  return text;
}

/// Takes the number at `text` apart; the end of its unit tail, or null if there is none.
const char* readDecimal(const char* text, Decimal* number) {
  while (isBlank(*text))
    ++text;
  number->negative = *text == '-';
  if (*text == '-' || *text == '+')
    ++text;

  number->digits = text;
  std::uint64_t word = 0;
  while (isAsciiDigit(*text))
    word = word * 10 + static_cast<unsigned>(*text++ - '0');
  std::int64_t count = text - number->digits;
  if (*text == '.') {
    const char* const fraction = ++text;
    while (isAsciiDigit(*text))
      word = word * 10 + static_cast<unsigned>(*text++ - '0');
    number->fractionDigits = text - fraction;
    count += number->fractionDigits;
  }
  if (count == 0)
    return nullptr;
  number->word = word;
  number->fitsWord = count <= digitsOfWord;
  number->endDigits = text;
  if (asciiLower(*text) == 'e')
    text = readExponent(text, &number->scale);
  return readTail(text, &number->scale);
}

/// Copies the digits without their point, at most as many as are decisive; the exponent of what
/// was copied is that of the whole plus `*dropped`.
char* copyDecisiveDigits(const Decimal& number, char* out, std::int64_t* dropped) {
  const char* const start = out;
  bool isExact = true;
  for (const char* digit = number.digits; digit != number.endDigits; ++digit) {
    if (*digit == '.' || (*digit == '0' && out == start))
      continue;
    if (out - start < decisiveDigits) {
      *out++ = *digit;
    } else {
      isExact = isExact && *digit == '0';
      ++*dropped;
    }
  }
  if (!isExact) {
    *out++ = '1';
    --*dropped;
  }
  return out;
}

/// The general way: digits and one exponent, handed to the correctly rounding reader.
double roundDecimal(const Decimal& number) {
  char buffer[decisiveDigits + 40];
  char* out = buffer;
  std::int64_t exponent = number.scale;
  std::int64_t magnitude = exponent; // of the value, within a few places
  if (number.fitsWord) {
    out = std::copy(number.digits, number.endDigits, out);
  } else {
    exponent -= number.fractionDigits;
    out = copyDecisiveDigits(number, out, &exponent);
    magnitude = exponent + (out - buffer);
  }
  if (out == buffer || (number.fitsWord && number.word == 0))
    return 0;
  constexpr std::int64_t beyondReach = 400;
  if (magnitude > beyondReach)
    return std::numeric_limits<double>::infinity();
  if (magnitude < -beyondReach)
    return 0;
  *out++ = 'e';
  out = std::to_chars(out, buffer + sizeof buffer, exponent).ptr;
  double value = 0;
  if (std::from_chars(buffer, out, value).ec == std::errc::result_out_of_range)
    return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0;
  return value;
}

double toReal(const Decimal& number) {
  double value;
  const std::int64_t exponent = number.scale - number.fractionDigits;
  if (number.fitsWord && number.word < exactIntegers && exponent <= largestExactPower &&
      exponent >= -largestExactPower) {
    // Both operands are exact, so the one operation rounds correctly. To do both is faster than
    // to guess which.
    const double word = static_cast<double>(number.word);
    const double power = exactPowers[exponent < 0 ? -exponent : exponent];
    const double quotient = word / power;
    const double product = word * power;
    value = exponent < 0 ? quotient : product;
  } else {
    value = roundDecimal(number);
  }
  return number.negative ? -value : value;
}

YString makeText(const char* text, int length) {
  return YString(text, static_cast<std::size_t>(length));
}

} // namespace

static_assert(engTextCapacity == numberTextCapacity);

double sp_ConvertEngToReal(const char* text, char** end) {
  Decimal number;
  const char* stop = text ? readDecimal(text, &number) : nullptr;
  if (end)
    *end = const_cast<char*>(stop ? stop : text);
  return stop ? toReal(number) : 0;
}

double sp_ConvertEngToReal(const YString& text) {
  return sp_ConvertEngToReal(text.c_str());
}

bool sp_IsEngNumber(const char* text, double* value) {
  Decimal number;
  const char* stop = text ? readDecimal(text, &number) : nullptr;
  if (!stop)
    return false;
  while (isBlank(*stop))
    ++stop;
  if (*stop)
    return false;
  if (value)
    *value = toReal(number);
  return true;
}

int sp_FormatEng(double value, int significantDigits, char* buffer) {
  return writeEng(value, significantDigits, buffer);
}

YString sp_ConvertRealToJSEng(double value, int significantDigits, bool) {
  char text[engTextCapacity];
  return makeText(text, sp_FormatEng(value, significantDigits, text));
}

YString sp_ConvertRealToPlain(double value, int significantDigits) {
  char text[numberTextCapacity];
  return makeText(text, writePlain(value, significantDigits, 15, text));
}
