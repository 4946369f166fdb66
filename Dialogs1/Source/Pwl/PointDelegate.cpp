#include "Pwl/PointDelegate.h"

#include "HostSupportQt/Colours.h"
#include "Pwl/PWLTableItems.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <cstdlib>

static constexpr int leastContrast = 90; // of lightness, in 255ths
static constexpr int onDark = 180;       // lightness of a colour that is seen there
static constexpr int onLight = 40;

bool PointDelegate::eventFilter(QObject* editor, QEvent* event) {
  const auto* edit = qobject_cast<const QLineEdit*>(editor);
  if (edit && event->type() == QEvent::ShortcutOverride && !edit->isUndoAvailable() &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
    event->ignore();
    return true;
  }
  return OneLineDelegate::eventFilter(editor, event);
}

void PointDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (!(option->displayAlignment & Qt::AlignVertical_Mask))
    option->displayAlignment |= Qt::AlignVCenter;
  if (!m_counts(index.row(), option->text)) {
    option->palette.setColor(QPalette::Text,
                             option->palette.color(QPalette::Disabled, QPalette::Text));
    option->font.setItalic(true);
    return;
  }
  const QColor ground = option->backgroundBrush.style() == Qt::NoBrush
                            ? option->palette.color(QPalette::Base)
                            : option->backgroundBrush.color();
  const auto* points = qobject_cast<const QTableWidget*>(parent());
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
