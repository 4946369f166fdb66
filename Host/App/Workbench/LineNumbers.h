#pragma once

#include <QWidget>

class ScriptEditor;

/// The margin of the editor with the lines' numbers and the mark of an error.
class LineNumbers : public QWidget {
  Q_OBJECT

public:
  explicit LineNumbers(ScriptEditor* editor);
  QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

private:
  ScriptEditor* m_editor;
};
