#include "Services/Digitiser/Magnifier.h"

#include <QPainter>

static constexpr double magnification = 8;

Magnifier::Magnifier(QWidget* parent) : QWidget(parent) {}

void Magnifier::setPicture(const QImage& picture) {
  m_picture = picture;
  update();
}

void Magnifier::showPlace(const QPointF& pixel) {
  m_place = pixel;
  update();
}

void Magnifier::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Mid));
  const QPointF middle = QRectF(rect()).center();
  const QSizeF size = QSizeF(this->size()) / magnification;
  const QRectF around(m_place - QPointF(size.width(), size.height()) / 2, size);
  const QRectF seen = QRectF(around.toAlignedRect()) & QRectF(QPointF(), QSizeF(m_picture.size()));
  painter.drawImage(
      QRectF((seen.topLeft() - m_place) * magnification + middle, seen.size() * magnification),
      m_picture, seen);
  const QLineF hairs[] = {{0, middle.y(), double(width()), middle.y()},
                          {middle.x(), 0, middle.x(), double(height())}};
  for (const QPen& pen : {QPen(QColor(255, 255, 255, 170), 3), QPen(QColor(0xc8, 0x20, 0x20), 1)}) {
    painter.setPen(pen);
    painter.drawLines(hairs, 2);
  }
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
