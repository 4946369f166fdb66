#include "Services/Digitiser/DigitiserView.h"

#include "Services/Digitiser/DigitiserModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double mostZoom = 32;
constexpr double zoomStep = 1.25;
constexpr double sharpZoom = 2; // from here on pixels are shown as squares
constexpr double reach = 8;     // units of the viewport in which the mouse takes hold
constexpr int largeStep = 10;   // pixels that Shift and an arrow key move
constexpr double dot = 3.5;     // radius of a point

const QColor halo(255, 255, 255, 210);
const QColor markColours[] = {QColor(0x12, 0x5c, 0xc4), QColor(0x0c, 0x7a, 0x3e)}; // X, Y
const QColor pointColour(0xb0, 0x12, 0x6a);
const QColor selectedColour(0xe0, 0x6a, 0x00);

/// Lines that are seen on any picture.
void drawWithHalo(QPainter* painter, const QColor& colour, const QVector<QLineF>& lines) {
  painter->setPen(QPen(halo, 3.5));
  painter->drawLines(lines);
  painter->setPen(QPen(colour, 1.5));
  painter->drawLines(lines);
}

QVector<QLineF> cross(const QPointF& at, double inner, double outer) {
  return {{at.x() - outer, at.y(), at.x() - inner, at.y()},
          {at.x() + inner, at.y(), at.x() + outer, at.y()},
          {at.x(), at.y() - outer, at.x(), at.y() - inner},
          {at.x(), at.y() + inner, at.x(), at.y() + outer}};
}

QPoint pixelAt(const QPointF& at) {
  return {int(std::floor(at.x())), int(std::floor(at.y()))};
}

QPointF middleOfPixel(const QPointF& at) {
  return {std::floor(at.x()) + 0.5, std::floor(at.y()) + 0.5};
}

} // namespace

DigitiserView::DigitiserView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::CrossCursor);
}

void DigitiserView::setModel(DigitiserModel* model) {
  m_model = model;
  m_cursor = middleOfPixel(QRectF(QPointF(), QSizeF(model->picture().size())).center());
  connect(model, &DigitiserModel::changed, this, &DigitiserView::follow);
  fit();
}

/// Undo may have taken away what was selected.
void DigitiserView::follow() {
  const int count = m_model->state().points.size();
  if (placesMarks() ? !selectedPlace() : m_selected >= count)
    select(-1);
  if (!placesMarks() && m_hovered >= count)
    m_hovered = -1;
  viewport()->update();
}

void DigitiserView::setTool(int tool) {
  if (tool == m_tool)
    return;
  m_isDragging = false;
  m_hovered = -1;
  m_selected = -1;
  m_tool = tool;
  m_model->beginGesture();
  emit toolChanged(tool);
  emit selectionChanged();
  viewport()->update();
}

void DigitiserView::select(int index) {
  if (index == m_selected)
    return;
  m_selected = index;
  m_isDragging = false; // undo may take away what the mouse holds
  m_model->beginGesture();
  if (const auto place = selectedPlace())
    setCursorPlace(*place);
  emit selectionChanged();
  viewport()->update();
}

std::optional<QPointF> DigitiserView::selectedPlace() const {
  if (m_selected < 0)
    return std::nullopt;
  if (placesMarks())
    return m_model->state().places[static_cast<std::size_t>(m_selected)];
  return m_model->state().points.value(m_selected);
}

// ---- zoom and pan -------------------------------------------------------------------------------

QPointF DigitiserView::origin() const {
  return {-double(horizontalScrollBar()->value()), -double(verticalScrollBar()->value())};
}

QPointF DigitiserView::toViewport(const QPointF& pixel) const {
  return pixel * m_zoom + origin();
}

QPointF DigitiserView::toPicture(const QPointF& at) const {
  return (at - origin()) / m_zoom;
}

/// A picture that fits stands in the middle. Else any place of it can be brought there, so that
/// zooming keeps what is below the cursor.
void DigitiserView::updateBars() {
  const QSize shown = (QSizeF(m_model->picture().size()) * m_zoom).toSize();
  const auto update = [this](QScrollBar* bar, int length, int room) {
    if (m_isFitting)
      bar->setRange((length - room) / 2, (length - room) / 2);
    else
      bar->setRange(-room / 2, length - room / 2);
    bar->setPageStep(room);
    bar->setSingleStep(20);
  };
  update(horizontalScrollBar(), shown.width(), viewport()->width());
  update(verticalScrollBar(), shown.height(), viewport()->height());
  viewport()->update();
}

void DigitiserView::zoomAt(const QPointF& at, double zoom) {
  // The bars stand at whole units: turn by turn, what they lose would add up.
  if ((toViewport(m_zoomedPixel) - at).manhattanLength() > 2)
    m_zoomedPixel = toPicture(at);
  const QPointF pixel = m_zoomedPixel;
  const QSizeF size(m_model->picture().size());
  const double least = std::min(1.0, 32.0 / std::max(size.width(), size.height()));
  m_isFitting = false;
  m_zoom = qBound(least, zoom, mostZoom);
  updateBars();
  horizontalScrollBar()->setValue(qRound(pixel.x() * m_zoom - at.x()));
  verticalScrollBar()->setValue(qRound(pixel.y() * m_zoom - at.y()));
}

void DigitiserView::zoomBy(double factor) {
  const QPointF at = toViewport(m_cursor);
  const QRectF room(viewport()->rect());
  zoomAt(room.contains(at) ? at : room.center(), m_zoom * factor);
}

void DigitiserView::fit() {
  const QSizeF size(m_model->picture().size());
  const QSizeF room = maximumViewportSize();
  m_isFitting = true;
  m_zoom = qBound(1e-4, std::min(room.width() / size.width(), room.height() / size.height()),
                  mostZoom / 8);
  updateBars();
}

void DigitiserView::showActualSize() {
  zoomBy(1 / (m_zoom * devicePixelRatioF()));
}

void DigitiserView::resizeEvent(QResizeEvent*) {
  if (!m_model)
    return;
  if (m_isFitting)
    fit();
  else
    updateBars();
}

void DigitiserView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ShiftModifier) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  zoomAt(event->position(), m_zoom * std::pow(zoomStep, event->angleDelta().y() / 120.0));
  event->accept();
}

// ---- mouse --------------------------------------------------------------------------------------

int DigitiserView::nearest(const QPointF& at) const {
  int found = -1;
  double least = reach;
  const auto consider = [&](int index, const QPointF& pixel) {
    const double distance = QLineF(at, toViewport(pixel)).length();
    if (distance <= least) {
      least = distance;
      found = index;
    }
  };
  const DigitiserState& state = m_model->state();
  if (placesMarks()) {
    // The tool's own mark last, so that it wins where marks lie upon each other.
    for (int i = 1; i <= markCount; ++i) {
      const int mark = (m_tool + i) % markCount;
      if (const auto& place = state.places[static_cast<std::size_t>(mark)])
        consider(mark, *place);
    }
  } else if (m_tool == PointTool) {
    const QPointF pixel = toPicture(at);
    const double across = reach / m_zoom;
    // Points stand from left to right: only those in reach are looked at.
    const auto begin =
        std::lower_bound(state.points.begin(), state.points.end(), pixel.x() - across,
                         [](const QPointF& point, double x) { return point.x() < x; });
    for (auto point = begin; point != state.points.end() && point->x() <= pixel.x() + across;
         ++point)
      consider(static_cast<int>(point - state.points.begin()), *point);
  }
  return found;
}

/// The mouse went down: takes hold of what is there, else puts down something new and holds that.
void DigitiserView::pressAt(const QPointF& at) {
  m_model->beginGesture();
  if (m_tool == TraceTool) {
    emit tracePressed(pixelAt(m_cursor));
    return;
  }
  int index = nearest(at);
  const auto& due = m_model->state().places[static_cast<std::size_t>(placesMarks() ? m_tool : 0)];
  if (placesMarks() && index >= 0 && index != m_tool && !due)
    index = -1; // axes that meet share a place: the mark that is due is put there
  m_grip = QPointF();
  if (index >= 0) {
    const QPointF place = placesMarks() ? *m_model->state().places[static_cast<std::size_t>(index)]
                                        : m_model->state().points[index];
    m_grip = toViewport(place) - at;
    if (placesMarks() && index != m_tool)
      setTool(index);
  } else if (placesMarks()) {
    index = m_tool;
    m_model->placeMark(index, m_cursor);
  } else {
    index = m_model->addPoint(m_cursor);
  }
  m_selected = index;
  m_isDragging = true;
  emit selectionChanged();
  viewport()->update();
}

void DigitiserView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_spaceIsDown)) {
    m_isPanning = true;
    m_panFrom = event->pos();
    updateMouseCursor();
  } else if (event->button() == Qt::LeftButton && !m_isPanning) {
    const QPointF pixel = toPicture(event->localPos());
    if (!QRectF(QPointF(), QSizeF(m_model->picture().size())).contains(pixel))
      return;
    setCursorPlace(pixel);
    pressAt(event->localPos());
  }
}

void DigitiserView::mouseMoveEvent(QMouseEvent* event) {
  if (m_isPanning) {
    const QPoint way = event->pos() - m_panFrom;
    m_panFrom = event->pos();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
    m_isFitting = false;
    return;
  }
  if (m_isDragging) {
    const QPointF to = toPicture(event->localPos() + m_grip);
    setCursorPlace(to);
    moveSelected(m_cursor);
    return;
  }
  m_hovered = nearest(event->localPos());
  // While something is selected the arrow keys are at it; the magnifier may look elsewhere.
  setCursorPlace(toPicture(event->localPos()));
}

void DigitiserView::mouseReleaseEvent(QMouseEvent* event) {
  if (m_isPanning && event->button() != Qt::RightButton) {
    m_isPanning = false;
    updateMouseCursor();
  } else if (m_isDragging && event->button() == Qt::LeftButton) {
    m_isDragging = false;
    m_model->beginGesture();
  }
}

void DigitiserView::updateMouseCursor() {
  viewport()->setCursor(m_isPanning     ? Qt::ClosedHandCursor
                        : m_spaceIsDown ? Qt::OpenHandCursor
                                        : Qt::CrossCursor);
}

// ---- keyboard -----------------------------------------------------------------------------------

void DigitiserView::setCursorPlace(const QPointF& pixel) {
  const QSizeF size(m_model->picture().size());
  m_cursor = {qBound(0.0, pixel.x(), size.width()), qBound(0.0, pixel.y(), size.height())};
  emit cursorMoved();
  viewport()->update();
}

void DigitiserView::moveSelected(const QPointF& to) {
  if (placesMarks()) {
    m_model->placeMark(m_selected, to);
    return;
  }
  const int moved = m_model->movePoint(m_selected, to);
  if (moved != m_selected) {
    m_selected = moved;
    emit selectionChanged();
  }
}

void DigitiserView::moveBy(int dx, int dy) {
  if (const auto place = selectedPlace()) {
    setCursorPlace(*place + QPointF(dx, dy));
    moveSelected(m_cursor);
  } else {
    const QSizeF size(m_model->picture().size());
    const QPointF to = middleOfPixel(m_cursor) + QPointF(dx, dy);
    setCursorPlace(
        {qBound(0.5, to.x(), size.width() - 0.5), qBound(0.5, to.y(), size.height() - 0.5)});
  }
  // Keep it in sight.
  const QPointF at = toViewport(m_cursor);
  const QRectF room = QRectF(viewport()->rect()).adjusted(20, 20, -20, -20);
  const auto shift = [](double value, double low, double high) {
    return qRound(value < low ? value - low : value > high ? value - high : 0);
  };
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                  shift(at.x(), room.left(), room.right()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                shift(at.y(), room.top(), room.bottom()));
}

void DigitiserView::click() {
  m_model->beginGesture();
  if (m_tool == TraceTool) {
    emit tracePressed(pixelAt(m_cursor));
  } else if (placesMarks()) {
    if (m_selected < 0)
      m_model->placeMark(m_tool, m_cursor);
    select(-1);
    emit marked(m_tool);
  } else if (m_selected >= 0) {
    select(-1);
  } else if (const int index = nearest(toViewport(m_cursor));
             index >= 0 && QLineF(m_model->state().points[index], m_cursor).length() < 1) {
    select(index);
  } else {
    m_model->addPoint(m_cursor);
  }
}

void DigitiserView::keyPressEvent(QKeyEvent* event) {
  const int step = event->modifiers() & Qt::ShiftModifier ? largeStep : 1;
  const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  switch (event->key()) {
  case Qt::Key_Left:
    moveBy(-step, 0);
    return;
  case Qt::Key_Right:
    moveBy(step, 0);
    return;
  case Qt::Key_Up:
    moveBy(0, -step);
    return;
  case Qt::Key_Down:
    moveBy(0, step);
    return;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!isPlain)
      break;
    click();
    return;
  case Qt::Key_Delete:
  case Qt::Key_Backspace:
    if (const int index = m_selected; index >= 0) {
      select(-1);
      if (placesMarks())
        m_model->removeMark(index);
      else
        m_model->removePoints({index});
    }
    return;
  case Qt::Key_Escape:
    if (m_isDragging || m_selected >= 0) {
      m_isDragging = false;
      select(-1);
      return;
    }
    break; // the window closes
  case Qt::Key_Space:
    m_spaceIsDown = true;
    updateMouseCursor();
    return;
  default:
    break;
  }
  // A mark in hand: what is typed is its value.
  const QString text = event->text();
  if (isPlain && placesMarks() && m_selected >= 0 && text.size() == 1 &&
      (text[0].isDigit() || QStringLiteral("+-.").contains(text))) {
    emit valueTyped(m_selected, text);
    return;
  }
  QWidget::keyPressEvent(event); // the scroll bars take no keys
}

void DigitiserView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
    m_spaceIsDown = false;
    updateMouseCursor();
  }
}

void DigitiserView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void DigitiserView::focusOutEvent(QFocusEvent* event) {
  m_spaceIsDown = false;
  updateMouseCursor();
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

// ---- painting -----------------------------------------------------------------------------------

/// The picture at about twice the resolution of `scale`, or better: shrunk from the whole at once,
/// thin lines would drop out.
const QImage& DigitiserView::level(double scale) {
  const QImage* image = &m_model->picture();
  std::size_t depth = 0;
  while (scale < 0.5 && image->width() > 1 && image->height() > 1) {
    if (depth == m_halves.size())
      m_halves.push_back(
          image->scaled(image->size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    image = &m_halves[depth++];
    scale *= 2;
  }
  return *image;
}

void DigitiserView::paintPicture(QPainter* painter) {
  const QRectF whole(QPointF(), QSizeF(m_model->picture().size()));
  const QRectF room(toPicture(QPointF()),
                    toPicture({double(viewport()->width()), double(viewport()->height())}));
  const QRectF seen = QRectF(room.adjusted(-1, -1, 1, 1) & whole);
  const QImage& image = level(m_zoom * devicePixelRatioF());
  const double across = image.width() / whole.width();
  const double down = image.height() / whole.height();
  painter->setRenderHint(QPainter::SmoothPixmapTransform, m_zoom < sharpZoom);
  painter->drawImage(
      QRectF(toViewport(seen.topLeft()), toViewport(seen.bottomRight())), image,
      QRectF(seen.x() * across, seen.y() * down, seen.width() * across, seen.height() * down));
}

void DigitiserView::paintMarks(QPainter* painter) {
  for (int mark = 0; mark < markCount; ++mark) {
    const auto& place = m_model->state().places[static_cast<std::size_t>(mark)];
    if (!place)
      continue;
    const bool isSelected = placesMarks() && mark == m_selected;
    const QColor colour = isSelected ? selectedColour : markColours[mark < MarkY1 ? 0 : 1];
    const QPointF at = toViewport(*place);
    drawWithHalo(painter, colour,
                 cross(at, 2, isSelected || (placesMarks() && mark == m_hovered) ? 13 : 10));
    // Names of the x axis stand below their marks, those of the y axis to the left.
    const QString name = DigitiserModel::markName(mark);
    const QSizeF size(painter->fontMetrics().horizontalAdvance(name) + 6,
                      painter->fontMetrics().height());
    QRectF plate(QPointF(), size);
    plate.moveCenter(at + (mark < MarkY1 ? QPointF(0, 14 + size.height() / 2)
                                         : QPointF(-14 - size.width() / 2, 0)));
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    painter->drawRoundedRect(plate, 3, 3);
    painter->setPen(Qt::white);
    painter->drawText(plate, Qt::AlignCenter, name);
  }
}

void DigitiserView::paintPoints(QPainter* painter, const QRect& exposed) {
  const auto& points = m_model->state().points;
  const auto drawPoint = [&](int index, double radius, const QColor& colour) {
    const QPointF at = toViewport(points[index]);
    if (!QRectF(exposed).adjusted(-10, -10, 10, 10).contains(at))
      return;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(halo, 3));
    painter->drawEllipse(at, radius, radius);
    painter->setPen(QPen(colour, 1.5));
    painter->drawEllipse(at, radius, radius);
    painter->drawPoint(at);
  };
  for (int i = 0; i < points.size(); ++i)
    drawPoint(i, dot, pointColour);
  const bool isPointTool = !placesMarks();
  if (isPointTool && m_hovered >= 0 && m_hovered < points.size())
    drawPoint(m_hovered, dot + 3, pointColour);
  if (isPointTool && m_selected >= 0 && m_selected < points.size())
    drawPoint(m_selected, dot + 3, selectedColour);
}

/// Where a trace stopped and asks.
void DigitiserView::paintQuestions(QPainter* painter) {
  constexpr double radius = 11;
  for (const auto& place : {m_model->state().unclearLeft, m_model->state().unclearRight}) {
    if (!place)
      continue;
    const QPointF at = toViewport(*place);
    painter->setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(halo, 4), QPen(selectedColour, 2)}) {
      painter->setPen(pen);
      painter->drawEllipse(at, radius, radius);
    }
    QRectF plate(QPointF(), QSizeF(2 * radius, painter->fontMetrics().height()));
    plate.moveCenter(at - QPointF(0, radius + plate.height() / 2 + 2));
    painter->setPen(Qt::NoPen);
    painter->setBrush(selectedColour);
    painter->drawRoundedRect(plate, 3, 3);
    painter->setPen(Qt::black);
    painter->drawText(plate, Qt::AlignCenter, QStringLiteral("?"));
  }
}

void DigitiserView::paintCrossHair(QPainter* painter) {
  drawWithHalo(painter, QColor(0x30, 0x30, 0x30), cross(toViewport(m_cursor), 5, 16));
}

void DigitiserView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().color(QPalette::Mid));
  if (!m_model)
    return;
  paintPicture(&painter);
  painter.setRenderHint(QPainter::Antialiasing);
  paintPoints(&painter, event->rect());
  paintMarks(&painter);
  paintQuestions(&painter);
  if (hasFocus() && !viewport()->underMouse())
    paintCrossHair(&painter);
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(viewport());
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
}
