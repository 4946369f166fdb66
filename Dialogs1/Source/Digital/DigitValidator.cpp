#include "Digital/DigitValidator.h"

#include <algorithm>

static bool isSeparator(QChar character) {
  return character.isSpace() || character == QLatin1Char('_') || character == QLatin1Char('\'');
}

DigitValidator::DigitValidator(DigitBase base, QObject* parent) : QRegExpValidator(parent) {
  setBase(base);
}

void DigitValidator::setBase(DigitBase base) {
  setRegExp(QRegExp(QLatin1String(digitPattern(base))));
  prefixMark = QLatin1Char(base == DigitBase::Hexadecimal ? 'x'
                           : base == DigitBase::Binary    ? 'b'
                                                          : '\0');
}

QValidator::State DigitValidator::validate(QString& text, int& cursor) const {
  QString digits = bareDigits(text);
  int place = bareDigits(text.left(cursor)).size();
  // This moves the cursor where it refuses.
  const State asItStands = QRegExpValidator::validate(text, cursor);
  if (asItStands == Acceptable || QRegExpValidator::validate(digits, place) != Acceptable)
    return asItStands;
  text = digits;
  cursor = place;
  return Acceptable;
}

QString DigitValidator::bareDigits(QString text) const {
  text.truncate(
      static_cast<int>(std::remove_if(text.begin(), text.end(), isSeparator) - text.begin()));
  // The prefix may have been pasted behind a 0 that stood there before.
  const auto mark = std::find_if(text.cbegin(), text.cend(),
                                 [](QChar character) { return character != QLatin1Char('0'); });
  if (mark != text.cbegin() && mark != text.cend() && mark->toLower() == prefixMark)
    text.remove(0, static_cast<int>(mark - text.cbegin()) + 1);
  return text;
}
