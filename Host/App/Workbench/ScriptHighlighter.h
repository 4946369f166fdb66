#pragma once

#include <QSet>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

/// Colours JavaScript after the palette: keywords, texts, numbers, comments, and the functions that
/// the host knows.
class ScriptHighlighter : public QSyntaxHighlighter {
  Q_OBJECT

public:
  explicit ScriptHighlighter(QObject* owner);
  void setFunctions(const QStringList& names);
  void setPalette(const QPalette& palette);

protected:
  void highlightBlock(const QString& text) override;

private:
  int finishOpenToken(const QString& text);
  int colourComment(const QString& text, int start);
  int colourQuoted(const QString& text, int start, QChar quote);
  int colourWord(const QString& text, int start);
  int colourNumber(const QString& text, int start);

  QSet<QString> m_functions;
  QTextCharFormat m_keyword, m_quoted, m_number, m_comment, m_function;
};
