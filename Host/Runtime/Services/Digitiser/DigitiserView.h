#pragma once

#include <QAbstractScrollArea>
#include <QImage>

#include <optional>
#include <vector>

class DigitiserModel;

/// The picture with its marks and points: zoomed at the cursor, panned, clicked at.
///
/// What a click means is the tool's doing. The same by keyboard: the arrow keys move a cross hair
/// (by ten pixels with Shift), Return clicks there. What is selected is moved by the arrow keys
/// instead, until Return or Escape puts it down.
class DigitiserView : public QAbstractScrollArea {
  Q_OBJECT

public:
  /// A tool below `PointTool` places the mark of that number.
  enum Tool { PointTool = 4, TraceTool };

  explicit DigitiserView(QWidget* parent = nullptr);
  void setModel(DigitiserModel* model);

  int tool() const { return m_tool; }
  void setTool(int tool);
  /// Selects a point or, with a tool that marks, that mark; -1 puts down what is selected.
  void select(int index);
  int selected() const { return m_selected; }
  QPointF cursorPlace() const { return m_cursor; } ///< picture pixels

  double zoom() const { return m_zoom; }
  void zoomBy(double factor); ///< around the cross hair where it is visible
  void fit();
  void showActualSize();

  QSize sizeHint() const override { return {640, 480}; }

signals:
  void cursorMoved();
  void toolChanged(int tool);
  void selectionChanged();
  void valueTyped(int mark, const QString& text); ///< a value was begun to be typed at a mark
  void marked(int mark);                          ///< by Return: its value is due
  void tracePressed(const QPoint& pixel);

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  bool placesMarks() const { return m_tool < PointTool; }
  QPointF origin() const; ///< of the picture, in the viewport
  QPointF toViewport(const QPointF& pixel) const;
  QPointF toPicture(const QPointF& at) const;
  void zoomAt(const QPointF& at, double zoom);
  void updateBars();
  void follow();
  void setCursorPlace(const QPointF& pixel);
  void moveBy(int dx, int dy);
  void moveSelected(const QPointF& to);
  std::optional<QPointF> selectedPlace() const;
  int nearest(const QPointF& at) const; ///< point or mark of the tool in reach; -1 for none
  void pressAt(const QPointF& at);
  void click(); ///< at the cross hair, by keyboard
  void updateMouseCursor();
  const QImage& level(double scale);
  void paintPicture(QPainter* painter);
  void paintMarks(QPainter* painter);
  void paintPoints(QPainter* painter, const QRect& exposed);
  void paintQuestions(QPainter* painter);
  void paintCrossHair(QPainter* painter);

  DigitiserModel* m_model = nullptr;
  std::vector<QImage> m_halves; ///< the picture at 1/2, 1/4 … as far as needed
  double m_zoom = 1;            ///< units of the viewport for a pixel
  bool m_isFitting = true;
  QPointF m_zoomedPixel; ///< around which the picture was zoomed last
  int m_tool = 0;
  int m_selected = -1;
  int m_hovered = -1;
  QPointF m_cursor;
  bool m_isDragging = false;
  QPointF m_grip; ///< from the mouse to what it drags, in the viewport
  bool m_isPanning = false;
  bool m_spaceIsDown = false;
  QPoint m_panFrom;
};
