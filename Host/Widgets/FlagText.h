#pragma once

#include <QString>

#include <optional>

/// How every bound flag is written as a text.
inline QString flagText(bool on) {
  return on ? QStringLiteral("1") : QStringLiteral("0");
}

/// Reads "1" or "true" and "0" or "false" in any letter case; nothing where the text is another.
inline std::optional<bool> readFlag(const QString& text) {
  const QString word = text.trimmed();
  const auto is = [&word](QLatin1String other) {
    return word.compare(other, Qt::CaseInsensitive) == 0;
  };
  if (is(QLatin1String("1")) || is(QLatin1String("true")))
    return true;
  if (is(QLatin1String("0")) || is(QLatin1String("false")))
    return false;
  return std::nullopt;
}
