#include "Core/Properties/ObjectProperties.h"

#include "Core/Frame/Integers.h"
#include "Core/Frame/Words.h"

#include <algorithm>
#include <cstring>

static const QString lineBreakMark = QStringLiteral("\\n");

static constexpr Words<PropertyKind> typeWords = {
    {"", PropertyKind::Text},
    {"string", PropertyKind::Text},
    {"Font", PropertyKind::Font},
    {"Colour", PropertyKind::Colour},
    {"SchemProperty", PropertyKind::Flagged},
    {"SymbolProperty", PropertyKind::Flagged},
    {"*", PropertyKind::ReadOnly},
};

PropertyKind propertyKind(const YString& type) {
  return typeWords.read(type, PropertyKind::Choice);
}

PropertyValue readPropertyValue(const char* passed, PropertyKind kind) {
  const char* mark = passed && kind == PropertyKind::Flagged ? std::strrchr(passed, ';') : nullptr;
  if (!mark)
    return {QString::fromUtf8(passed), std::nullopt};
  return {QString::fromUtf8(passed, static_cast<int>(mark - passed)), leadingWord(mark + 1)};
}

YString writePropertyValue(const PropertyValue& value, const char* passed, PropertyKind kind) {
  const PropertyValue before = readPropertyValue(passed, kind);
  // A text that is not valid is shown as well as can be, and goes back as it came.
  YString text(value.text.toUtf8().constData());
  if (passed && before.text == value.text) {
    const char* end = before.attributes ? std::strrchr(passed, ';') : std::strchr(passed, '\0');
    text = YString(passed, static_cast<std::size_t>(end - passed));
  }
  return value.attributes ? YString(text.concat(";").concat(YString(*value.attributes))) : text;
}

QString shownPropertyText(const QString& text) {
  return QString(text).replace(QLatin1Char('\n'), lineBreakMark);
}

QString typedPropertyText(const QString& line) {
  return QString(line).replace(lineBreakMark, QStringLiteral("\n"));
}

QStringList propertyChoices(const YString& type) {
  return QString::fromUtf8(type).split(QLatin1Char('|'));
}

int propertyChoice(const QStringList& choices, const QString& value) {
  const int same = choices.indexOf(value);
  if (same >= 0)
    return same;
  const auto isAlike = [&](const QString& c) { return c.compare(value, Qt::CaseInsensitive) == 0; };
  const auto alike = std::find_if(choices.begin(), choices.end(), isAlike);
  return alike == choices.end() ? -1 : static_cast<int>(alike - choices.begin());
}
