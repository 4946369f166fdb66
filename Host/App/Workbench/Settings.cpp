#include "Workbench/Settings.h"

#include "HostSupport/Options.h"
#include "HostSupportQt/Text.h"

#include <QStringList>

QString setting(const char* section, const char* key, const QString& fallback) {
  YString value;
  return cfgman_GetConfigSetting(section, key, &value) ? toQs(value) : fallback;
}

void setSetting(const char* section, const char* key, const QString& value) {
  // Each write is a write of the file.
  if (setting(section, key) != value)
    sp_RememberSetting(section, key, Tocs(value));
}

QVector<int> numberListSetting(const char* section, const char* key) {
  QVector<int> numbers;
  const QStringList parts = setting(section, key).split(QLatin1Char(','), Qt::SkipEmptyParts);
  for (const QString& part : parts) {
    bool isNumber = false;
    numbers.append(part.toInt(&isNumber));
    if (!isNumber)
      return {};
  }
  return numbers;
}

void setNumberListSetting(const char* section, const char* key, const QVector<int>& numbers) {
  QStringList parts;
  for (int number : numbers)
    parts << QString::number(number);
  setSetting(section, key, parts.join(QLatin1Char(',')));
}
