#include "HostSupportQt/Captions.h"

QString plainCaption(const QString& caption) {
  QString plain;
  for (int i = 0; i < caption.size(); ++i) {
    if (caption.at(i) == QLatin1Char('&') && i + 1 < caption.size())
      ++i;
    plain.append(caption.at(i));
  }
  return plain.trimmed();
}
