#pragma once

#include <QVector>
#include <QWidget>

#include <functional>

class QPlainTextEdit;

/// The margin of an editor with the lines' numbers and the mark of an error.
class LineNumbers : public QWidget {
  Q_OBJECT

public:
  /// A line that can be seen, in pixels of the editor's viewport.
  struct Line {
    int number = 0;
    int top = 0;
    int height = 0;
    bool isError = false;
  };
  using VisibleLines = std::function<QVector<Line>()>;

  LineNumbers(QPlainTextEdit* editor, VisibleLines visibleLines);
  QSize sizeHint() const override;

signals:
  void clicked(int line);

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

private:
  QPlainTextEdit* m_editor;
  VisibleLines m_visibleLines;
};
