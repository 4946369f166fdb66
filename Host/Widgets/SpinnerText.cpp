#include "SpinnerText.h"

#include "HostSupportQt/Text.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>

namespace {

/// Units that may stand behind a suffix, where a blank has been before the two.
bool isUnit(const QString& text) {
  static const QStringList units =
      QStringLiteral("V A W F H Hz s sec S C J Wb VA Ohm Ohms ohm ohms "
                     "\u03a9 \u2126")
          .split(QLatin1Char(' '));
  return units.contains(text);
}

/// The letters behind a number and a blank as the simulator has to read them: it takes the first
/// for a suffix, be it the ampere's or the farad's. Nothing where nobody can tell what is meant.
std::optional<QString> suffixAndUnit(const QString& letters) {
  static const QRegularExpression suffixed(QStringLiteral("^(meg|[TGkmunpfa\u00b5\u03bc])(.*)$"),
                                           QRegularExpression::CaseInsensitiveOption);
  double one = 0;
  if (sp_IsEngNumber(QLatin1Char('1') + letters, &one) && one == 1)
    return letters; // begins with no suffix
  if (letters == QLatin1String("A") || letters == QLatin1String("F"))
    return QString();
  const auto match = suffixed.match(letters);
  const QString suffix = match.captured(1);
  const bool isCapital = suffix == QLatin1String("A") || suffix == QLatin1String("F");
  const bool isUnitToo = suffix == QLatin1String("T") || suffix == QLatin1String("G");
  const QString unit = match.captured(2);
  if (!match.hasMatch() || isCapital || (unit.isEmpty() ? isUnitToo : !isUnit(unit)))
    return std::nullopt;
  return letters;
}

/// The ways to write a number that engineers have and the simulator has not: "10 k" and "10 kHz"
/// for "10k" and "10kHz", "4k7" for "4.7k". Any other text is given back as it is.
QString simulatorText(const QString& text) {
  static const QRegularExpression spaced(
      QStringLiteral("^\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:e[+-]?\\d+)?)(\\s*)"
                     "([^\\W\\d_]+)(?:\\s+([^\\W\\d_]+))?\\s*$"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  static const QRegularExpression inner(
      QStringLiteral("^\\s*([+-]?\\d+)(Meg|[afpnumkgt])(\\d+)\\s*$"),
      QRegularExpression::CaseInsensitiveOption);
  if (const auto match = inner.match(text); match.hasMatch())
    return match.captured(1) + QLatin1Char('.') + match.captured(3) + match.captured(2);
  const auto match = spaced.match(text);
  if (!match.hasMatch() || (match.captured(2).isEmpty() && match.captured(4).isEmpty()))
    return text;
  const auto letters = suffixAndUnit(match.captured(3) + match.captured(4));
  return letters ? match.captured(1) + *letters : text;
}

/// A text without what pages and data sheets put between number and unit: blanks of another width,
/// and characters of none.
QString plainBlanks(QString text) {
  static const QRegularExpression none(QStringLiteral("[\u200b-\u200d\u2060\ufeff]"));
  static const QRegularExpression wide(QStringLiteral("[^\\S \\t\\r\\n\\f\\v]"),
                                       QRegularExpression::UseUnicodePropertiesOption);
  return text.remove(none).replace(wide, QStringLiteral(" "));
}

} // namespace

QString readableNumber(const QString& text) {
  const QString plain = plainBlanks(text);
  return sp_IsEngNumber(plain) ? plain : simulatorText(plain);
}
