#pragma once

#include <QString>

// Every source of the module is compiled with this header in front.
//
// Qt shares the characters of a literal with whoever copies the string, and keeps some of them for
// the whole program: patterns of QRegExp, names of fonts, what was copied to the clipboard. The
// characters of a literal lie in the module, which may be unloaded before. So a literal of the
// module is a string that owns its characters, as any other.
#undef QStringLiteral
#define QStringLiteral(text)                                                                       \
  QString(reinterpret_cast<const QChar*>(QT_UNICODE_LITERAL(text)),                                \
          int(sizeof(QT_UNICODE_LITERAL(text)) / sizeof(QChar)) - 1)
