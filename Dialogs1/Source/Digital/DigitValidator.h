#pragma once

#include "Core/Digital/DigitalConstant.h"

#include <QRegExpValidator>

/// Lets the digits of one base into a field. What is pasted may have blanks, underscores or
/// apostrophes between its digits, and "0x" or "0b" in front where that is the base; they are left
/// out.
class DigitValidator : public QRegExpValidator {
public:
  DigitValidator(DigitBase base, QObject* parent);

  void setBase(DigitBase base);
  State validate(QString& text, int& cursor) const override;

private:
  QString bareDigits(QString text) const;

  QLatin1Char prefixMark{0};
};
