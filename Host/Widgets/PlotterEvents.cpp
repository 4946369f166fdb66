#include "PlotterPrivate.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int flat = 8;       ///< a drag of less is none in this direction
constexpr double notch = 120; ///< of a wheel, in its own unit
constexpr double notchFactor = 0.8;
constexpr double keyFactor = 0.5;
constexpr double scrollWidth = 0.1; ///< of the view, by a key or a notch
constexpr int cursorStep = 8;

} // namespace

/// A box that is flat one way zooms only the other way, and so does one where only one is free.
QRect Plotter::Private::band() const {
  const QRect grid = area();
  QRect box = QRect(*bandStart, bandEnd).normalized() & grid;
  const auto spread = [&](bool horizontal) {
    if (horizontal)
      box = QRect(grid.left(), box.top(), grid.width(), box.height());
    else
      box = QRect(box.left(), grid.top(), box.width(), grid.height());
  };
  if (!isFree(x) || (box.width() < flat && isFree(y)))
    spread(true);
  else if (!isFree(y) || box.height() < flat)
    spread(false);
  return box;
}

void Plotter::Private::zoomToBand() {
  const QRect box = band();
  const QRect grid = area();
  const QRect drag = QRect(*bandStart, bandEnd).normalized();
  bandStart.reset();
  q->update();
  if (std::max(isFree(x) ? drag.width() : 0, isFree(y) ? drag.height() : 0) < flat)
    return;
  const QPointF from = valueAt(box.bottomLeft());
  const QPointF to = valueAt(box.topRight());
  if (box.width() < grid.width())
    zoomTo(&x, {x.placeOf(from.x()), x.placeOf(to.x())});
  if (box.height() < grid.height())
    zoomTo(&y, {y.placeOf(from.y()), y.placeOf(to.y())});
}

void Plotter::Private::setCursor(const std::optional<QPointF>& position) {
  if (!cursor && !position)
    return;
  cursor = position;
  q->update();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  const QPointF value = cursor ? valueAt(*cursor) : QPointF(none, none);
  emit q->cursorMoved(value.x(), value.y());
  announceReadOut();
}

void Plotter::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !d->zoomDirections ||
      !d->area().contains(event->pos())) {
    event->ignore();
    return;
  }
  d->bandStart = d->bandEnd = event->pos();
}

void Plotter::mouseMoveEvent(QMouseEvent* event) {
  if (d->bandStart) {
    d->bandEnd = event->pos();
    update();
  }
  d->setCursor(d->area().contains(event->pos()) ? std::optional<QPointF>(event->localPos())
                                                : std::nullopt);
}

void Plotter::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !d->bandStart)
    return;
  d->bandEnd = event->pos();
  d->zoomToBand();
}

void Plotter::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton)
    resetZoom();
}

void Plotter::wheelEvent(QWheelEvent* event) {
  const QPoint delta = event->angleDelta();
  // Some systems turn the wheel sideways by themselves while Alt or Shift is held.
  const double notches = (delta.y() != 0 ? delta.y() : delta.x()) / notch;
  const bool sideways = (event->modifiers() & Qt::ShiftModifier) || delta.y() == 0;
  Private::Direction* direction = event->modifiers() & Qt::ControlModifier ? &d->y : &d->x;
  if (notches == 0 || !d->isFree(*direction)) {
    event->ignore(); // what stands around the plotter may scroll
    return;
  }
  event->accept();
  const QPointF at = d->valueAt(event->position());
  if (sideways)
    d->scroll(direction, -notches * scrollWidth);
  else
    d->zoom(direction, std::pow(notchFactor, notches),
            direction->placeOf(direction == &d->x ? at.x() : at.y()));
}

bool Plotter::Private::zoomKey(int key) {
  switch (key) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: // plus without Shift on many keyboards
  case Qt::Key_Minus:
    for (Direction* direction : {&x, &y})
      if (isFree(*direction))
        zoom(direction, key == Qt::Key_Minus ? 1 / keyFactor : keyFactor, direction->view.centre());
    return true;
  case Qt::Key_0:
  case Qt::Key_Home:
    q->resetZoom();
    return true;
  case Qt::Key_Escape:
    if (!bandStart)
      return false;
    bandStart.reset();
    q->update();
    return true;
  default:
    return false;
  }
}

bool Plotter::Private::arrowKey(int key, bool movesCursor) {
  const int right = (key == Qt::Key_Right) - (key == Qt::Key_Left);
  const int up = (key == Qt::Key_Up) - (key == Qt::Key_Down);
  if (right == 0 && up == 0)
    return false;
  if (movesCursor) {
    const QRectF grid = area();
    const QPointF at = cursor.value_or(grid.center()) + QPointF(right, -up) * cursorStep;
    setCursor(QPointF(std::clamp(at.x(), grid.left(), grid.right() - 1),
                      std::clamp(at.y(), grid.top(), grid.bottom() - 1)));
    return true;
  }
  Direction* direction = right != 0 ? &x : &y;
  if (!isFree(*direction))
    return false;
  scroll(direction, (right + up) * scrollWidth);
  return true;
}

void Plotter::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  if (!d->arrowKey(event->key(), control) && (control || !d->zoomKey(event->key())))
    QWidget::keyPressEvent(event);
}

void Plotter::leaveEvent(QEvent*) {
  d->setCursor(std::nullopt);
}

void Plotter::focusInEvent(QFocusEvent*) {
  update();
}

void Plotter::focusOutEvent(QFocusEvent*) {
  d->bandStart.reset();
  update();
}
