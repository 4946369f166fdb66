#include "Call/CommandWords.h"

#include "Call/ScriptVector.h"

QStringList commandWords(const QString& line) {
  const QChar quote = QLatin1Char('"');
  QStringList words;
  QString word;
  bool inWord = false;
  bool quoted = false;
  for (int i = 0; i < line.size(); ++i) {
    const QChar c = line.at(i);
    if (c == quote && quoted && i + 1 < line.size() && line.at(i + 1) == quote) {
      word += quote;
      ++i;
    } else if (c == quote) {
      quoted = !quoted;
      inWord = true;
    } else if (c.isSpace() && !quoted) {
      if (inWord)
        words.append(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (quoted)
    throw CallError(QStringLiteral("command: a quote is not closed: %1").arg(line.simplified()));
  if (inWord)
    words.append(word);
  return words;
}
