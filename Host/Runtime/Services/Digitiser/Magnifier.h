#pragma once

#include <QImage>
#include <QPointF>
#include <QWidget>

/// What lies around a place of a picture, eight times as large, with cross hairs on the place.
class Magnifier : public QWidget {
  Q_OBJECT

public:
  explicit Magnifier(QWidget* parent = nullptr);
  void setPicture(const QImage& picture); ///< shared, not copied
  void showPlace(const QPointF& pixel);

  QSize sizeHint() const override { return {200, 130}; }
  QSize minimumSizeHint() const override { return {120, 100}; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QImage m_picture;
  QPointF m_place;
};
