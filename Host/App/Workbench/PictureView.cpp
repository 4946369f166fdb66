#include "Workbench/PictureView.h"

#include "Palettes.h"

#include <QAction>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStyleOptionFocusRect>

static constexpr int margin = 8;

PictureView::PictureView(QWidget* parent)
    : QWidget(parent), m_fullSize(new QAction(tr("&Full Size"), this)),
      m_save(new QAction(tr("&Save Picture As…"), this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Picture of the last dialog"));
  setContextMenuPolicy(Qt::ActionsContextMenu);
  addActions({m_fullSize, m_save});
  connect(m_fullSize, &QAction::triggered, this, &PictureView::showFullSize);
  connect(m_save, &QAction::triggered, this, &PictureView::saveAs);
  setPicture(QPixmap(), QString());
}

void PictureView::setPicture(const QPixmap& picture, const QString& name) {
  m_picture = picture;
  m_name = name;
  const bool hasPicture = !picture.isNull();
  m_fullSize->setEnabled(hasPicture);
  m_save->setEnabled(hasPicture);
  setCursor(hasPicture ? Qt::PointingHandCursor : Qt::ArrowCursor);
  setToolTip(hasPicture ? tr("%1: click for full size").arg(name) : QString());
  update();
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  const QRect inside = rect().adjusted(margin, margin, -margin, -margin);
  if (m_picture.isNull()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap,
                     tr("The picture of the last dialog appears here."));
  } else {
    // Never larger than it was.
    const QSize units = m_picture.size() / m_picture.devicePixelRatioF();
    const QSize shown = units.width() > inside.width() || units.height() > inside.height()
                            ? units.scaled(inside.size(), Qt::KeepAspectRatio)
                            : units;
    QRect target(QPoint(), shown);
    target.moveCenter(inside.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, m_picture);
    painter.setPen(ruleColour(palette()));
    painter.drawRect(target.adjusted(-1, -1, 0, 0));
  }
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
    showFullSize();
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
      event->key() == Qt::Key_Space)
    showFullSize();
  else
    QWidget::keyPressEvent(event);
}

void PictureView::showFullSize() {
  if (m_picture.isNull())
    return;
  auto* area = new QScrollArea(this);
  area->setWindowFlags(Qt::Window);
  area->setAttribute(Qt::WA_DeleteOnClose);
  area->setWindowTitle(m_name);
  auto* label = new QLabel;
  label->setPixmap(m_picture);
  label->setAccessibleName(tr("Picture of %1").arg(m_name));
  area->setWidget(label);
  area->resize((label->sizeHint() + QSize(4, 4)).boundedTo(screen()->availableSize() * 9 / 10));
  auto* closeAction = new QAction(area);
  closeAction->setShortcuts({Qt::Key_Escape, QKeySequence::Close});
  connect(closeAction, &QAction::triggered, area, &QWidget::close);
  area->addAction(closeAction);
  area->show();
}

void PictureView::saveAs() {
  if (m_picture.isNull())
    return;
  QFileDialog dialog(this, tr("Save Picture"), QString(), tr("Pictures (*.png)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("png"));
  dialog.selectFile(m_name + QStringLiteral(".png"));
  if (dialog.exec() != QDialog::Accepted)
    return;
  const QString path = dialog.selectedFiles().value(0);
  if (!m_picture.save(path, "PNG"))
    QMessageBox::warning(this, tr("Save Picture"), tr("%1 cannot be written.").arg(path));
}
