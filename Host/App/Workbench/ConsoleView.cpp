#include "Workbench/ConsoleView.h"

#include "Palettes.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace {

constexpr int mostOutputLines = 5000;
constexpr int longestOutput = 20000; // characters of one text
constexpr int mostLines = 200;

} // namespace

ConsoleView::ConsoleView(QWidget* parent)
    : QWidget(parent), m_output(new QPlainTextEdit), m_input(new QLineEdit) {
  const QFont fixed = codeFont();
  m_output->setReadOnly(true);
  m_output->setFont(fixed);
  m_output->setFrameShape(QFrame::NoFrame);
  m_output->setMaximumBlockCount(mostOutputLines);
  m_output->setTabChangesFocus(true);
  m_output->setUndoRedoEnabled(false);
  m_output->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_output->setAccessibleName(tr("Console output"));
  m_input->setFont(fixed);
  m_input->setAccessibleName(tr("Console line"));
  m_input->setPlaceholderText(tr("A line of script; it sees what the last run left behind"));
  m_input->installEventFilter(this);
  setFocusProxy(m_input);

  auto* prompt = new QLabel(QStringLiteral("›"));
  prompt->setFont(fixed);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(6, 4, 6, 4);
  row->addWidget(prompt);
  row->addWidget(m_input, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_output, 1);
  column->addLayout(row);
  connect(m_input, &QLineEdit::returnPressed, this, &ConsoleView::enter);
}

void ConsoleView::add(const QString& text, Kind kind) {
  const InkColours inks = inkColours(palette());
  QTextCharFormat format;
  QString mark;
  switch (kind) {
  case Kind::Input:
    format.setForeground(inks.comment);
    mark = QStringLiteral("› ");
    break;
  case Kind::Value:
    format.setForeground(inks.function);
    mark = QStringLiteral("→ ");
    break;
  case Kind::Error:
    format.setForeground(inks.error);
    break;
  case Kind::Output:
    break;
  }
  QString shown = mark + text.left(longestOutput);
  if (text.size() > longestOutput)
    shown += QStringLiteral("…");
  const bool wasAtEnd =
      m_output->verticalScrollBar()->value() == m_output->verticalScrollBar()->maximum();
  QTextCursor cursor(m_output->document());
  cursor.movePosition(QTextCursor::End);
  if (!m_output->document()->isEmpty())
    cursor.insertBlock();
  cursor.insertText(shown, format);
  if (wasAtEnd)
    m_output->verticalScrollBar()->setValue(m_output->verticalScrollBar()->maximum());
}

void ConsoleView::clear() {
  m_output->clear();
}

void ConsoleView::enter() {
  const QString line = m_input->text().trimmed();
  if (line.isEmpty())
    return;
  m_lines.removeAll(line);
  m_lines << line;
  if (m_lines.size() > mostLines)
    m_lines.removeFirst();
  m_position = m_lines.size();
  m_input->clear();
  add(line, Kind::Input);
  emit entered(line);
}

void ConsoleView::browse(int step) {
  const int next = m_position + step;
  if (next < 0 || next > m_lines.size())
    return;
  if (m_position == m_lines.size())
    m_newLine = m_input->text();
  m_position = next;
  m_input->setText(next == m_lines.size() ? m_newLine : m_lines[next]);
}

bool ConsoleView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      browse(key == Qt::Key_Up ? -1 : 1);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}
