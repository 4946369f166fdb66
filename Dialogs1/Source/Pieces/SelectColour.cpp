#include "Pieces/SelectColour.h"

#include "HostSupportQt/HostSupportQt.h"

#include <QApplication>
#include <QColorDialog>
#include <QPixmapCache>
#include <QStyle>

QColor unpackedColour(int packed) {
  return QColor(toQs(sp_ConvertRGBcolourToHTML(packed)));
}

int packedColour(const QColor& colour) {
  return sp_ConvertHTMLcolourToRGB(toYs(colour.name()));
}

QPixmap colourPatch(int packed) {
  // Kept between calls: of a patch that is made anew, Qt keeps a copy each time it is drawn.
  const int size = QApplication::style()->pixelMetric(QStyle::PM_SmallIconSize);
  const QColor colour = unpackedColour(packed);
  const QString key = QStringLiteral("ColourPatch%1%2").arg(size).arg(colour.name());
  QPixmap patch;
  if (!QPixmapCache::find(key, &patch)) {
    patch = QPixmap(size, size);
    patch.fill(colour);
    QPixmapCache::insert(key, patch);
  }
  return patch;
}

std::optional<int> askForColour(QWidget* over, int initial) {
  const QColor colour = QColorDialog::getColor(unpackedColour(initial), over);
  return colour.isValid() ? std::optional(packedColour(colour)) : std::nullopt;
}
