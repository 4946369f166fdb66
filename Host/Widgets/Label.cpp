#include "HostWidgets/Label.h"

#include "HostSupportQt/Captions.h"
#include "HostSupportQt/GuiThread.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWhatsThis>

namespace {

const QLatin1String infoLink("ref");

/// As in the picture that captions with a link of their own show.
const QColor informationColour(0x2f, 0x7f, 0xd6);

bool linksToInfo(const QString& text) {
  static const QRegularExpression link(QStringLiteral("<a\\s+href=[\"']?%1\\b").arg(infoLink));
  return link.match(text).hasMatch();
}

} // namespace

Label::Label(QWidget* parent, const char* objectName) : QLabel(sp_GuiParent(parent, "Label")) {
  setObjectName(QLatin1String(objectName));
  connect(this, &QLabel::linkActivated, this, [this](const QString& link) {
    if (link == infoLink)
      showInfo();
  });
}

void Label::setInfo(const QString& text) {
  if (text == m_info)
    return;
  const bool hadMark = !m_info.isEmpty();
  m_info = text;
  m_linksToInfo = linksToInfo(QLabel::text());
  const bool hasMark = !m_info.isEmpty();
  setAccessibleDescription(plainText(m_info));
  if (hasMark != hadMark) {
    setFocusPolicy(hasMark ? Qt::TabFocus : Qt::NoFocus);
    setMouseTracking(hasMark);
    if (!hasMark)
      unsetCursor();
    reserveMark();
  }
  update();
}

void Label::showInfo() {
  if (!m_info.isEmpty())
    QWhatsThis::showText(mapToGlobal((drawsMark() ? markRect() : rect()).bottomLeft()), m_info,
                         this);
}

int Label::markSpace() const {
  return !drawsMark() ? 0 : fontMetrics().height() + fontMetrics().averageCharWidth() / 2;
}

void Label::reserveMark() {
  // In the margins, so that every size the label computes already counts the mark.
  const auto trailing = [this](int width) {
    return m_reservedLeft ? QMargins(width, 0, 0, 0) : QMargins(0, 0, width, 0);
  };
  QMargins margins = contentsMargins() - trailing(m_reserved);
  m_reserved = markSpace();
  m_reservedLeft = layoutDirection() == Qt::RightToLeft;
  margins += trailing(m_reserved);
  setContentsMargins(margins);
}

QRect Label::markRect() const {
  if (!drawsMark())
    return {};
  const int side = fontMetrics().height();
  const QRect area = contentsRect();
  // Beside the text where the label is wider than it, else at the far edge.
  const QSize needed = wordWrap() ? area.size() : sizeHint() - QSize(m_reserved, 0);
  // A label aligns its text by the text's own direction.
  const Qt::LayoutDirection direction =
      QLabel::text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
  const QRect text =
      QStyle::alignedRect(direction, alignment(), needed.boundedTo(area.size()), area);
  QRect mark(0, 0, side, side);
  mark.moveCenter(text.center());
  if (m_reservedLeft)
    mark.moveRight(text.left() - m_reserved + side - 1);
  else
    mark.moveLeft(text.right() + 1 + m_reserved - side);
  return mark;
}

void Label::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  if (drawsMark())
    paintMark(&painter);
  if (!m_info.isEmpty() && hasFocus()) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = drawsMark() ? markRect() : contentsRect();
    option.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
}

void Label::paintMark(QPainter* painter) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const QRect mark = markRect();
  const qreal line = mark.height() / 12.0;
  const QRectF circle = QRectF(mark).adjusted(2 * line, 2 * line, -2 * line, -2 * line);
  const QColor colour = !isEnabled()              ? palette().color(QPalette::Mid)
                        : m_hovered || hasFocus() ? informationColour.darker(130)
                                                  : informationColour;
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  painter->drawEllipse(circle);
  // An "i" of lines rather than of a font: it stays centred at every size.
  QPen stroke(Qt::white, 1.4 * line);
  stroke.setCapStyle(Qt::RoundCap);
  painter->setPen(stroke);
  const QPointF middle = circle.center();
  const qreal unit = circle.height() / 8;
  painter->drawLine(middle + QPointF(0, -0.4 * unit), middle + QPointF(0, 2 * unit));
  painter->drawPoint(middle + QPointF(0, -2 * unit));
  painter->restore();
}

void Label::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && markRect().contains(event->pos())) {
    event->accept();
    showInfo();
    return;
  }
  QLabel::mousePressEvent(event);
}

void Label::mouseMoveEvent(QMouseEvent* event) {
  setHovered(markRect().contains(event->pos()));
  QLabel::mouseMoveEvent(event);
}

void Label::leaveEvent(QEvent* event) {
  setHovered(false);
  QLabel::leaveEvent(event);
}

void Label::setHovered(bool on) {
  if (on == m_hovered)
    return;
  m_hovered = on;
  if (on)
    setCursor(Qt::PointingHandCursor);
  else
    unsetCursor();
  update();
}

void Label::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Space:
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_F1:
    if (!m_info.isEmpty()) {
      event->accept();
      showInfo();
      return;
    }
    break;
  default:
    break;
  }
  QLabel::keyPressEvent(event);
}

void Label::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
    reserveMark();
}
