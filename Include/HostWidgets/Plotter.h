#pragma once

#include "HostWidgets/Axis.h"
#include "HostWidgets/Export.h"

#include <QPen>
#include <QWidget>

#include <memory>
#include <vector>

/// Curves over a grid, to look at: with zoom, scrolling and a read-out of the cursor.
///
/// The wheel zooms x at the cursor, with Ctrl y, and with Shift scrolls x. A drag zooms to the box,
/// or in one direction where the box is flat. A double click shows everything again. The keys + and
/// - zoom, 0 or Home resets, the arrows scroll, and with Ctrl they move the cursor cross.
///
/// Colours that are not set follow the palette, and so that it can be seen does a curve whose own
/// colour is lost on a background of the palette. The dialog gives the accessible name; the
/// read-out is the accessible value.
class HOSTWIDGETS_EXPORT Plotter : public QWidget {
  Q_OBJECT
  Q_PROPERTY(Qt::Orientations zoomDirections READ zoomDirections WRITE setZoomDirections)
  Q_PROPERTY(double xMinimum READ xMinimum NOTIFY xRangeChanged DESIGNABLE false STORED false)
  Q_PROPERTY(double xMaximum READ xMaximum NOTIFY xRangeChanged DESIGNABLE false STORED false)
  Q_PROPERTY(double yMinimum READ yMinimum DESIGNABLE false STORED false)
  Q_PROPERTY(double yMaximum READ yMaximum DESIGNABLE false STORED false)
  Q_PROPERTY(QString readOut READ readOut NOTIFY cursorMoved DESIGNABLE false STORED false)

public:
  explicit Plotter(QWidget* parent = nullptr, const char* objectName = nullptr);
  ~Plotter() override;

  /// Replaces a curve; the one with the highest index is drawn last, on top. `points` holds x and y
  /// in turn, a last one without y is dropped; empty takes the curve away. A point with a NaN or an
  /// infinity is a gap. The pen's width is in device-independent pixels.
  void setCurveData(int index, const std::vector<double>& points, const QPen& pen);
  /// The same from `count` values of x and of y.
  void setCurveData(int index, const double* x, const double* y, qint64 count, const QPen& pen);

  /// Space around the grid, where the labels stand, in device-independent pixels. As much as the
  /// labels need until it is called.
  void setMargins(int left, int top, int right, int bottom);
  void initializeAxes(const Axis& x, const Axis& y); ///< and shows their whole ranges
  /// Makes x zoom and scroll as one with that of another plotter, which takes over this one's
  /// range.
  void shareXRange(Plotter* other);

  // An invalid colour is that of the palette.
  void setTextColour(const QColor& colour);
  void setMajorGridColor(const QColor& colour);
  void setMinorGridColour(const QColor& colour);
  void setBackgroundColour(const QColor& colour);

  /// Whether numbers have prefixes, as 500m; not where the unit beside the axis has one already.
  void setPrefixes(bool shown);
  Qt::Orientations zoomDirections() const;
  /// What the user can zoom and scroll; strips of levels do not zoom vertically.
  void setZoomDirections(Qt::Orientations directions);

  double xMinimum() const; ///< of what is on show
  double xMaximum() const;
  double yMinimum() const;
  double yMaximum() const;
  QString readOut() const; ///< the place of the cursor as text; empty where there is none

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

public slots:
  void setXRange(double minimum, double maximum); ///< as an `Axis` takes them; NaN is ignored
  void setYRange(double minimum, double maximum);
  void resetZoom(); ///< the ranges of the axes

signals:
  void xRangeChanged(double minimum, double maximum);
  void cursorMoved(double x, double y); ///< NaN where it has left

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  class Private;
  std::unique_ptr<Private> d;
};
