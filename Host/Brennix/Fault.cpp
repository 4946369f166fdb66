#include "Fault.h"

#include <algorithm>

static constexpr int longestQuote = 60; // characters

static QString withoutMarks(QString text) {
  for (QChar& each : text)
    if (each == QLatin1Char('*'))
      each = QChar(0x2217); // the operator, which looks the same
    else if (!each.isPrint() && !each.isSurrogate())
      each = QChar::ReplacementCharacter;
  return text;
}

QString quotable(std::string_view utf8) {
  constexpr std::size_t longestCharacter = 4; // bytes
  const std::string_view head = utf8.substr(0, (longestQuote + 1) * longestCharacter);
  QString text = QString::fromUtf8(head.data(), static_cast<int>(head.size()));
  if (text.size() > longestQuote) {
    text.truncate(longestQuote - text.at(longestQuote - 1).isHighSurrogate());
    text += QChar(0x2026);
  }
  return withoutMarks(text);
}

QByteArray messageFile(QVector<Fault> faults) {
  const auto ofLine = [](const Fault& fault) { return fault.line > 0; };
  const auto ofFile = std::stable_partition(faults.begin(), faults.end(), ofLine);
  const int tail = std::min(mostFaults, static_cast<int>(faults.end() - ofFile));
  const int head = std::min(mostFaults - tail, static_cast<int>(ofFile - faults.begin()));
  faults.erase(ofFile + tail, faults.end());
  faults.erase(faults.begin() + head, ofFile);

  QString text;
  for (const Fault& fault : qAsConst(faults)) {
    text += QStringLiteral("<<<<<<<<<< Error Message ID: %1 >>>>>>>>>>\n\n")
                .arg(static_cast<int>(fault.number));
    text += QStringLiteral("In the file ") + withoutMarks(fault.file);
    if (fault.line > 0)
      text += QStringLiteral(", line %1:").arg(fault.line);
    text += QLatin1Char('\n') + fault.text + QStringLiteral("\n\n") +
            QString(40, QLatin1Char('*')) + QStringLiteral("\n\n");
  }
  return text.toUtf8();
}
