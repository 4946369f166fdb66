#pragma once

#include "HostSupport/YString.h"
#include "HostSupportQt/Export.h"

#include <QByteArray>
#include <QString>

HOSTSUPPORTQT_EXPORT YString toYs(const QString& text);
HOSTSUPPORTQT_EXPORT QString toQs(const YString& text);
/// For a value consumed at once: valid until the eighth next call in this thread.
HOSTSUPPORTQT_EXPORT const char* toCs(const QString& text);

/// Keeps the UTF-8 bytes of a text alive as long as it stands.
class HOSTSUPPORTQT_EXPORT Tocs {
public:
  explicit Tocs(const QString& text) : m_bytes(text.toUtf8()) {}
  operator const char*() const { return m_bytes.constData(); }

private:
  QByteArray m_bytes;
};

/// Comparison without regard to case.
HOSTSUPPORTQT_EXPORT bool equals(const QString& a, const QString& b);
HOSTSUPPORTQT_EXPORT bool notEquals(const QString& a, const QString& b);

/// A text as the row of a list shows it: one line, breaks shown as blanks, and cut where it is
/// longer than any row is wide.
HOSTSUPPORTQT_EXPORT QString rowText(const QString& text);

/// `sp_ConvertEngToReal` of a Qt text.
HOSTSUPPORTQT_EXPORT double sp_ConvertEngToReal(const QString& text);
/// `sp_IsEngNumber` of a Qt text.
HOSTSUPPORTQT_EXPORT bool sp_IsEngNumber(const QString& text, double* value = nullptr);
