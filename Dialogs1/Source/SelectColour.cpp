#include "SelectColour.h"

#include "HostSupportQt/HostSupportQt.h"

#include <QColorDialog>

QColor unpackedColour(int packed) {
  return QColor(toQs(sp_ConvertRGBcolourToHTML(packed)));
}

int packedColour(const QColor& colour) {
  return sp_ConvertHTMLcolourToRGB(toYs(colour.name()));
}

std::optional<int> askForColour(QWidget* over, int initial) {
  const QColor colour = QColorDialog::getColor(unpackedColour(initial), over);
  return colour.isValid() ? std::optional(packedColour(colour)) : std::nullopt;
}
