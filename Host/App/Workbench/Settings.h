#pragma once

#include <QString>
#include <QVector>

// What the workbench remembers: plain texts and whole numbers in the host's settings.

QString setting(const char* section, const char* key, const QString& fallback = QString());
void setSetting(const char* section, const char* key, const QString& value);
/// Numbers of a comma-separated list; empty where any part is not a whole number.
QVector<int> numberListSetting(const char* section, const char* key);
void setNumberListSetting(const char* section, const char* key, const QVector<int>& numbers);
