#include "SelectColour.h"

#include "HostSupportQt/HostSupportQt.h"

#include <QColorDialog>

std::optional<int> askForColour(QWidget* over, int initial) {
  const QColor colour =
      QColorDialog::getColor(QColor(toQs(sp_ConvertRGBcolourToHTML(initial))), over);
  if (!colour.isValid())
    return std::nullopt;
  return sp_ConvertHTMLcolourToRGB(toYs(colour.name()));
}
