#include "Pieces/PathLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

QSize PathLabel::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

bool PathLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip)
    return QLabel::event(event);
  const QString tip = shownText() == text() ? QString() : Qt::convertFromPlainText(text());
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
  return true;
}

void PathLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                        isEnabled(), shownText(), foregroundRole());
}

QString PathLabel::shownText() const {
  return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}
