#include "Workbench/Glyphs.h"

#include "Palettes.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

constexpr double side = 24; // of the square that the paths are drawn in

QPainterPath polygon(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QVector<QPointF>(points)));
  path.closeSubpath();
  return path;
}

QPainterPath line(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QVector<QPointF>(points)));
  return path;
}

struct Drawing {
  QPainterPath stroked;
  QPainterPath filled;
};

Drawing drawingOf(Glyph glyph) {
  Drawing drawing;
  switch (glyph) {
  case Glyph::New:
    drawing.stroked = polygon({{6, 3}, {14, 3}, {19, 8}, {19, 21}, {6, 21}});
    drawing.stroked.addPath(line({{14, 3}, {14, 8}, {19, 8}}));
    break;
  case Glyph::Open:
    drawing.stroked = line({{3, 19}, {3, 5}, {9, 5}, {11, 8}, {19, 8}, {19, 11}});
    drawing.stroked.addPath(polygon({{3, 19}, {6.5, 11}, {22, 11}, {18.5, 19}}));
    break;
  case Glyph::Save:
    drawing.stroked = polygon({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}});
    drawing.stroked.addPath(line({{8, 4}, {8, 9}, {15, 9}, {15, 4}}));
    drawing.stroked.addPath(line({{7, 20}, {7, 13}, {17, 13}, {17, 20}}));
    break;
  case Glyph::Run:
    drawing.filled = polygon({{6, 3}, {21, 12}, {6, 21}});
    break;
  case Glyph::Stop:
    drawing.filled.addRoundedRect(5, 5, 14, 14, 1.5, 1.5);
    break;
  case Glyph::Back:
    drawing.stroked = line({{12, 5}, {5, 12}, {12, 19}});
    drawing.stroked.addPath(line({{5, 12}, {20, 12}}));
    break;
  case Glyph::Forward:
    drawing.stroked = line({{12, 5}, {19, 12}, {12, 19}});
    drawing.stroked.addPath(line({{4, 12}, {19, 12}}));
    break;
  case Glyph::Contents:
    for (double y : {6.0, 12.0, 18.0}) {
      drawing.stroked.addPath(line({{9, y}, {20, y}}));
      drawing.filled.addEllipse(QPointF(5, y), 1.3, 1.3);
    }
    break;
  case Glyph::Search:
    drawing.stroked.addEllipse(QPointF(10.5, 10.5), 6, 6);
    drawing.stroked.addPath(line({{15, 15}, {20.5, 20.5}}));
    break;
  }
  return drawing;
}

class GlyphEngine : public QIconEngine {
public:
  explicit GlyphEngine(Glyph glyph) : m_glyph(glyph) {}

  QIconEngine* clone() const override { return new GlyphEngine(m_glyph); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QPalette palette = QGuiApplication::palette();
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QColor ink = palette.color(group, QPalette::ButtonText);
    if (mode != QIcon::Disabled && m_glyph == Glyph::Run)
      ink = inkColours(palette).success;
    if (mode != QIcon::Disabled && m_glyph == Glyph::Stop)
      ink = inkColours(palette).error;
    const Drawing drawing = drawingOf(m_glyph);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / side, rect.height() / side);
    painter->fillPath(drawing.filled, ink);
    painter->strokePath(drawing.stroked,
                        QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

private:
  Glyph m_glyph;
};

} // namespace

QIcon glyphIcon(Glyph glyph) {
  return QIcon(new GlyphEngine(glyph));
}
