#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

/// Reads a number the simulator's way: optional sign, decimal digits, an exponent, a suffix
/// T G Meg k m u n p f a in any letter case ("M" is milli, "Meg" mega; "\u00b5" is micro as well),
/// then a unit tail of letters that is ignored ("10kOhm", "5V"). Leading blanks are skipped.
/// Independent of the locale. The value is the double nearest to the decimal text.
///
/// `end`, when not null, receives where reading stopped: behind the unit tail, or at `text` itself
/// where no number stands; the value is then 0. A magnitude beyond a double gives an infinity.
HOSTSUPPORT_EXPORT double sp_ConvertEngToReal(const char* text, char** end = nullptr);
HOSTSUPPORT_EXPORT double sp_ConvertEngToReal(const YString& text);

/// Reads as `sp_ConvertEngToReal` and says whether the whole text, but for blanks around it, is one
/// finite or overflowing number. `value` is untouched where it is not.
HOSTSUPPORT_EXPORT bool sp_IsEngNumber(const char* text, double* value = nullptr);

/// Writes a number with an engineering suffix and at most `significantDigits` (1 to 17) digits,
/// without trailing zeros: "4.7k", "9Meg", "100m". Where no suffix reaches (from 1e15 up, below
/// 1e-18) it is written with an exponent, "1.5e21". What it writes reads back to the same digits.
/// NaN is "nan", the infinities "inf" and "-inf"; neither reads back as a number.
HOSTSUPPORT_EXPORT YString sp_ConvertRealToJSEng(double value, int significantDigits, bool = false);

/// Writes a number without a suffix at `significantDigits`: plain digits where at most 15 places
/// are needed, else with an exponent.
HOSTSUPPORT_EXPORT YString sp_ConvertRealToPlain(double value, int significantDigits);

/// The length that `sp_FormatEng` needs at most, terminator included.
constexpr int engTextCapacity = 40;
/// As `sp_ConvertRealToJSEng`, into `buffer` of at least `engTextCapacity` bytes; the length.
HOSTSUPPORT_EXPORT int sp_FormatEng(double value, int significantDigits, char* buffer);
