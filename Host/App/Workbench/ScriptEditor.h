#pragma once

#include <QPlainTextEdit>

class LineNumbers;
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
  int errorLine() const { return m_errorLine; }
  void setErrorLine(int line); ///< counted from 1; 0 for none
  void goToLine(int line);
  void setFontSize(double points); ///< within what can be read
  double fontSize() const;

  /// A line that can be seen, in pixels of the viewport.
  struct VisibleLine {
    int number = 0;
    int top = 0;
    int height = 0;
  };
  QVector<VisibleLine> visibleLines() const;

  static constexpr double defaultFontSize = 10;

signals:
  void fontSizeChanged(double points);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
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
