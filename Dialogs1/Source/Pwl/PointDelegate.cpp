#include "Pwl/PointDelegate.h"

#include "HostSupportQt/Colours.h"
#include "Pwl/PWLTableItems.h"
#include "Pwl/PointTable.h"

#include <cstdlib>

static constexpr int leastContrast = 90; // of lightness, in 255ths
static constexpr int onDark = 180;       // lightness of a colour that is seen there
static constexpr int onLight = 40;

void PointDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (!(option->displayAlignment & Qt::AlignVertical_Mask))
    option->displayAlignment |= Qt::AlignVCenter;
  if (const auto* table = qobject_cast<const PointTable*>(parent());
      table && !table->isPart(index.row())) {
    option->palette.setCurrentColorGroup(QPalette::Disabled);
    option->palette.setColor(QPalette::Text,
                             option->palette.color(QPalette::Disabled, QPalette::Text));
    return;
  }
  const QColor ground = option->backgroundBrush.style() == Qt::NoBrush
                            ? option->palette.color(QPalette::Base)
                            : option->backgroundBrush.color();
  const auto* points = qobject_cast<const PointTable*>(parent());
  if (points && dynamic_cast<const ErrorPWLTableItem*>(points->item(index.row(), index.column()))) {
    option->palette.setColor(QPalette::Text, sp_WrongColour(ground));
    return;
  }
  const QColor text = option->palette.color(QPalette::Text);
  const int groundLightness = qGray(ground.rgb());
  if (std::abs(qGray(text.rgb()) - groundLightness) >= leastContrast)
    return;
  const bool isGrey = text.hslHue() < 0;
  option->palette.setColor(
      QPalette::Text, QColor::fromHsl(isGrey ? 0 : text.hslHue(), isGrey ? 0 : text.hslSaturation(),
                                      groundLightness < 128 ? onDark : onLight));
}
