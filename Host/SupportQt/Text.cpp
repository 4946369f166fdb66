#include "HostSupportQt/Text.h"

#include "HostSupport/Numbers.h"

#include <array>

YString toYs(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return YString(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QString toQs(const YString& text) {
  return QString::fromUtf8(text.c_str(), static_cast<int>(text.length()));
}

const char* toCs(const QString& text) {
  // A ring, so that several texts may stand in one call of a formatting function.
  thread_local std::array<QByteArray, 8> ring;
  thread_local std::size_t next = 0;
  QByteArray& bytes = ring[next++ % ring.size()];
  bytes = text.toUtf8();
  return bytes.constData();
}

bool equals(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool notEquals(const QString& a, const QString& b) {
  return !equals(a, b);
}

QString rowText(const QString& text) {
  constexpr int longestShown = 1000; // characters
  QString shown = text.size() > longestShown ? text.left(longestShown) + QChar(0x2026) : text;
  for (QChar& character : shown)
    if (character == QLatin1Char('\n') || character == QLatin1Char('\r'))
      character = QLatin1Char(' ');
  return shown;
}

double sp_ConvertEngToReal(const QString& text) {
  return sp_ConvertEngToReal(text.toUtf8().constData());
}

bool sp_IsEngNumber(const QString& text, double* value) {
  return sp_IsEngNumber(text.toUtf8().constData(), value);
}
