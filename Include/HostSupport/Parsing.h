#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

#include <cstdint>
#include <limits>

/// Passed as `maxFields` where there is no limit.
constexpr int allFields = std::numeric_limits<int>::max();

/// Cuts `text` at every `separator` into `out` (cleared first), at most `maxFields` pieces, the
/// last holding the rest; 0 and below is no limit. Empty fields are kept; an empty text gives one
/// empty field. Returns the count.
HOSTSUPPORT_EXPORT int sp_SplitLine(const char* text, char separator, YArray<YString>* out,
                                    int maxFields);

/// Cuts `text` at runs of any of `delimiters` into `out` (cleared first), dropping empty fields;
/// with a limit above 0 the last field holds the rest, but for delimiters at its end. Returns the
/// count.
HOSTSUPPORT_EXPORT int sp_ScanLine(const char* text, const char* delimiters, YArray<YString>* out,
                                   int maxFields);

/// Takes the next token at `*cursor` and moves the cursor behind it: leading `delimiters` are
/// skipped; each character of `extra` is a token of its own; a character of `stopAt` ends the
/// search where it stands. False, with an empty token, when there is none. `extra`, `stopAt` may be
/// null.
HOSTSUPPORT_EXPORT bool sp_GetToken(const char** cursor, YString* token, const char* delimiters,
                                    const char* extra, const char* stopAt, bool);

/// One value of `sp_sprintf`, tagged with its kind.
class PrintfArg {
public:
  PrintfArg() = default;
  PrintfArg(int value) : PrintfArg(Kind::Integer, value) {}
  PrintfArg(unsigned value) : PrintfArg(Kind::Unsigned, value) {}
  PrintfArg(long value) : PrintfArg(Kind::Integer, value) {}
  PrintfArg(unsigned long value) : PrintfArg(Kind::Unsigned, value) {}
  PrintfArg(long long value) : PrintfArg(Kind::Integer, value) {}
  PrintfArg(unsigned long long value) : PrintfArg(Kind::Unsigned, value) {}
  PrintfArg(double value) : kind(Kind::Real), real(value) {}
  PrintfArg(const char* value) : kind(Kind::Text), text(value) {}
  PrintfArg(const YString& value) : kind(Kind::Text), text(value.c_str()) {}

  enum class Kind { None, Integer, Unsigned, Real, Text };
  Kind kind = Kind::None;
  int bits = 64;            ///< of an integer's type
  std::int64_t integer = 0; ///< an unsigned one beyond its reach is negative
  double real = 0;
  const char* text = "";

private:
  template <class Integer> PrintfArg(Kind itsKind, Integer value)
      : kind(itsKind), bits(8 * int{sizeof value}), integer(static_cast<std::int64_t>(value)) {}
};

/// Bounded formatted print, independent of the locale: % with flags, width and precision and one of
/// d i u o x X c f e g s %; a value of another kind is converted, a missing one prints as empty.
/// What is printed without a sign has the bits of its type; hh, h, and ll, j, z and t, which stand
/// for 64, say otherwise.
/// False when the text was cut to `size`; it is terminated all the same.
HOSTSUPPORT_EXPORT bool sp_sprintf(char* buffer, int size, const char* format, PrintfArg = {},
                                   PrintfArg = {}, PrintfArg = {}, PrintfArg = {});
