#include "Workbench/ScriptHighlighter.h"

#include "Palettes.h"

namespace {

/// What a line leaves open for the next one.
enum State { Nothing = 0, InComment = 1, InTemplate = 2 };

const QSet<QString>& keywords() {
  static const QSet<QString> words = [] {
    const QString all = QStringLiteral(
        "break case catch class const continue debugger default delete do else extends false "
        "finally for function if in instanceof let new null of return static super switch this "
        "throw true try typeof undefined var void while yield NaN Infinity");
    const QStringList list = all.split(QLatin1Char(' '));
    return QSet<QString>(list.begin(), list.end());
  }();
  return words;
}

bool isWordStart(QChar letter) {
  return letter.isLetter() || letter == QLatin1Char('_') || letter == QLatin1Char('$');
}

bool isWordPart(QChar letter) {
  return isWordStart(letter) || letter.isDigit();
}

} // namespace

ScriptHighlighter::ScriptHighlighter(QObject* owner) : QSyntaxHighlighter(owner) {}

void ScriptHighlighter::setFunctions(const QStringList& names) {
  m_functions = QSet<QString>(names.begin(), names.end());
  for (const char* own : {"check", "command", "equal", "host", "include", "near", "print"})
    m_functions.insert(QLatin1String(own));
  rehighlight();
}

void ScriptHighlighter::setPalette(const QPalette& palette) {
  const InkColours inks = inkColours(palette);
  m_keyword.setForeground(inks.keyword);
  m_keyword.setFontWeight(QFont::DemiBold);
  m_quoted.setForeground(inks.text);
  m_number.setForeground(inks.number);
  m_comment.setForeground(inks.comment);
  m_comment.setFontItalic(true);
  m_function.setForeground(inks.function);
  rehighlight();
}

void ScriptHighlighter::highlightBlock(const QString& text) {
  int at = finishOpenToken(text);
  while (at < text.size()) {
    const QChar letter = text[at];
    const bool isSlash = letter == QLatin1Char('/') && at + 1 < text.size();
    if (isSlash && text[at + 1] == QLatin1Char('/')) {
      setFormat(at, text.size() - at, m_comment);
      return;
    }
    if (isSlash && text[at + 1] == QLatin1Char('*'))
      at = colourComment(text, at);
    else if (letter == QLatin1Char('"') || letter == QLatin1Char('\'') ||
             letter == QLatin1Char('`'))
      at = colourQuoted(text, at, letter);
    else if (letter.isDigit())
      at = colourNumber(text, at);
    else if (isWordStart(letter))
      at = colourWord(text, at);
    else
      ++at;
  }
}

int ScriptHighlighter::finishOpenToken(const QString& text) {
  const int before = previousBlockState();
  setCurrentBlockState(Nothing);
  if (before == InComment)
    return colourComment(text, 0);
  if (before == InTemplate)
    return colourQuoted(text, -1, QLatin1Char('`'));
  return 0;
}

int ScriptHighlighter::colourComment(const QString& text, int start) {
  // Behind its own opening, which must not count as the end: "/*/".
  const int inside = previousBlockState() == InComment && start == 0 ? 0 : start + 2;
  const int end = text.indexOf(QLatin1String("*/"), inside);
  const int stop = end < 0 ? text.size() : end + 2;
  setFormat(start, stop - start, m_comment);
  if (end < 0)
    setCurrentBlockState(InComment);
  return stop;
}

int ScriptHighlighter::colourQuoted(const QString& text, int start, QChar quote) {
  int at = start + 1;
  while (at < text.size() && text[at] != quote)
    at += text[at] == QLatin1Char('\\') ? 2 : 1;
  const bool isClosed = at < text.size();
  const int stop = isClosed ? at + 1 : text.size();
  const int first = qMax(start, 0);
  setFormat(first, stop - first, m_quoted);
  if (!isClosed && quote == QLatin1Char('`'))
    setCurrentBlockState(InTemplate);
  return stop;
}

int ScriptHighlighter::colourWord(const QString& text, int start) {
  int at = start;
  while (at < text.size() && isWordPart(text[at]))
    ++at;
  const QString word = text.mid(start, at - start);
  const bool isMember = start > 0 && text[start - 1] == QLatin1Char('.');
  if (!isMember && keywords().contains(word))
    setFormat(start, at - start, m_keyword);
  else if (!isMember && m_functions.contains(word))
    setFormat(start, at - start, m_function);
  return at;
}

int ScriptHighlighter::colourNumber(const QString& text, int start) {
  int at = start;
  const auto isSign = [&text](int index) {
    return index > 0 && (text[index] == QLatin1Char('-') || text[index] == QLatin1Char('+')) &&
           text[index - 1].toLower() == QLatin1Char('e');
  };
  while (at < text.size() &&
         (text[at].isLetterOrNumber() || text[at] == QLatin1Char('.') || isSign(at)))
    ++at;
  setFormat(start, at - start, m_number);
  return at;
}
