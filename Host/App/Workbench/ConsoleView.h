#pragma once

#include <QStringList>
#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

/// A line for trying script out, with what was printed above it. Up and Down go through the lines
/// entered before.
class ConsoleView : public QWidget {
  Q_OBJECT

public:
  explicit ConsoleView(QWidget* parent = nullptr);

  enum class Kind { Input, Output, Value, Error };
  void add(const QString& text, Kind kind);
  void clear();

signals:
  void entered(const QString& line);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void enter();
  void browse(int step);

  QPlainTextEdit* m_output;
  QLineEdit* m_input;
  QStringList m_lines; ///< entered before, the latest last
  int m_position = 0;  ///< in `m_lines`; their number for the new line
  QString m_newLine;   ///< what stood in the field before browsing
};
