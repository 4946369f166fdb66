#pragma once

#include <QPixmap>
#include <QWidget>

class QAction;

/// The picture of the last dialog, scaled to fit. A click or Return shows it in full size.
class PictureView : public QWidget {
  Q_OBJECT

public:
  explicit PictureView(QWidget* parent = nullptr);

  void setPicture(const QPixmap& picture, const QString& name);
  void showFullSize();
  void saveAs();

  QSize sizeHint() const override { return {280, 220}; }
  QSize minimumSizeHint() const override { return {120, 80}; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QPixmap m_picture;
  QString m_name;
  QAction* m_fullSize;
  QAction* m_save;
};
