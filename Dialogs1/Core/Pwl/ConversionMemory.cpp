#include "Core/Pwl/ConversionMemory.h"

#include <QStringList>

static constexpr QChar separator = QLatin1Char('|');

ConversionMemory readConversionMemory(const QString& text) {
  if (text.isEmpty())
    return {QString(), QString(), QStringLiteral("0"), QStringLiteral("20")};
  const QStringList fields = text.split(separator);
  return {fields.value(0), fields.value(1), fields.value(2), fields.value(3)};
}

QString writeConversionMemory(const ConversionMemory& memory) {
  return QStringList{memory.input, memory.output, memory.limitFlag, memory.limitValue}.join(
      separator);
}
