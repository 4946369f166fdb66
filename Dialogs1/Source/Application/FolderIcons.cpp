#include "Application/FolderIcons.h"

#include <QGuiApplication>
#include <QImageReader>
#include <QScreen>

static QPixmap folderPixmap(const char* name) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const qreal scale = screen ? screen->logicalDotsPerInch() / 96 : 1;
  const qreal sharpness = qApp->devicePixelRatio();
  QImageReader reader(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
  // Drawn at that size, rather than enlarged.
  reader.setScaledSize(QSize(16, 16) * scale * sharpness);
  QPixmap pixmap = QPixmap::fromImageReader(&reader);
  pixmap.setDevicePixelRatio(sharpness);
  return pixmap;
}

namespace {

/// At the end of the program there is no screen any more that they could be of; they go before it,
/// where the module does.
struct Pixmaps {
  std::array<QPixmap, 3>* all;
  ~Pixmaps() {
    if (qApp)
      delete all;
  }
};

} // namespace

FolderIcons::FolderIcons() {
  static const Pixmaps made{new std::array<QPixmap, 3>{
      folderPixmap("folder-closed"), folderPixmap("folder-open"), folderPixmap("folder-link")}};
  const std::array<QPixmap, 3>& pixmaps = *made.all;
  for (std::size_t i = 0; i < icons.size(); ++i)
    for (QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
      icons[i].addPixmap(pixmaps[i], mode); // the selection does not tint it
  iconSize = pixmaps.front().size() / pixmaps.front().devicePixelRatio();
}
