#include "Workbench/LineNumbers.h"

#include "Palettes.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextBlock>

static constexpr int sidePadding = 8;

LineNumbers::LineNumbers(QPlainTextEdit* editor, VisibleLines visibleLines)
    : QWidget(editor), m_editor(editor), m_visibleLines(std::move(visibleLines)) {}

QSize LineNumbers::sizeHint() const {
  // Room for three digits at least, so that the text does not jump at the tenth line.
  const int digits = qMax(3, QString::number(m_editor->blockCount()).size());
  return {2 * sidePadding + digits * m_editor->fontMetrics().horizontalAdvance(QLatin1Char('9')),
          0};
}

void LineNumbers::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QPalette colours = m_editor->palette();
  painter.fillRect(event->rect(), colours.color(QPalette::AlternateBase));
  painter.setFont(m_editor->font());
  const int current = m_editor->textCursor().blockNumber();
  for (const Line& line : m_visibleLines()) {
    if (line.isError)
      painter.fillRect(0, line.top, width(), line.height, inkColours(colours).error);
    QColor ink =
        colours.color(line.number == current + 1 ? QPalette::Text : QPalette::PlaceholderText);
    if (line.isError)
      ink = colours.color(QPalette::Base);
    painter.setPen(ink);
    painter.drawText(0, line.top, width() - sidePadding, line.height, Qt::AlignRight,
                     QString::number(line.number));
  }
}

void LineNumbers::mousePressEvent(QMouseEvent* event) {
  for (const Line& line : m_visibleLines())
    if (event->y() >= line.top && event->y() < line.top + line.height)
      emit clicked(line.number);
}
