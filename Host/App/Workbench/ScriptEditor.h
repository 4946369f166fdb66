#pragma once

#include "Workbench/LineNumbers.h"

#include <QPlainTextEdit>

class ScriptHighlighter;

/// The editor of scripts: line numbers, colours, matching brackets, indentation by blanks, the mark
/// of the line where a script failed.
class ScriptEditor : public QPlainTextEdit {
  Q_OBJECT

public:
  explicit ScriptEditor(QWidget* parent = nullptr);

  /// Shows another script with its own history of changes; null is not allowed.
  void showDocument(QTextDocument* document);
  void setFunctions(const QStringList& names); ///< to be coloured
  void setErrorLine(int line);                 ///< counted from 1; 0 for none
  void goToLine(int line);
  void setFontSize(double points); ///< within what can be read
  double fontSize() const;

  static constexpr double defaultFontSize = 10;

signals:
  void fontSizeChanged(double points);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  QVector<LineNumbers::Line> visibleLines() const;
  void applyPaletteColours();
  void updateMargin();
  void updateMarks();
  QList<QTextEdit::ExtraSelection> bracketMarks() const;
  int matchingBracket(int position) const;
  bool isBlankBeforeCursor() const;
  void breakLine();
  void indent(bool outwards);

  LineNumbers* m_numbers;
  ScriptHighlighter* m_highlighter;
  int m_errorLine = 0;
};
