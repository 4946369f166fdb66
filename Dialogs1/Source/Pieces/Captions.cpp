#include "Pieces/Captions.h"

#include "HostSupportQt/RichText.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>

namespace {

constexpr int longestCaption = 500; // characters

/// What a caption has room for.
struct Room {
  int letters; ///< across, as wide as on the average
  int lines;
};
constexpr Room onButton = {60, 3};
constexpr Room onGroup = {60, 1};
constexpr Room onShortLabel = {30, 1};

} // namespace

QString shownCaption(const QString& text) {
  return text.size() > longestCaption ? text.left(longestCaption - 1) + QChar(0x2026) : text;
}

QString shownHeading(const QString& text) {
  return shownCaption(text).simplified();
}

QString labelText(const QString& text) {
  return harmlessText(shownCaption(text));
}

void tellWhole(QWidget* widget, const QString& whole) {
  widget->setToolTip(QStringLiteral("<p>%1</p>").arg(whole.toHtmlEscaped()));
  widget->setAccessibleName(whole);
}

/// The caption as it is shown; where that is not all of it, the widget has the rest elsewhere.
static QString elidedCaption(QWidget* widget, const QString& caption, const Room& room) {
  const QFontMetrics metrics = widget->fontMetrics();
  const QString whole = shownCaption(caption);
  const int width = room.letters * metrics.averageCharWidth();
  const QSize size = metrics.size(0, whole);
  if (size.width() <= width && size.height() < (room.lines + 1) * metrics.lineSpacing())
    return whole;
  tellWhole(widget, whole);
  return metrics.elidedText(whole.simplified(), Qt::ElideMiddle, width);
}

void captionButton(QAbstractButton* button, const QString& caption) {
  button->setText(
      elidedCaption(button, caption, onButton).replace(QLatin1Char('&'), QLatin1String("&&")));
}

void captionGroup(QGroupBox* group, const QString& caption, Ampersands ampersands) {
  // "&Signals" has a mnemonic, "R & D" has none.
  static const QRegularExpression everyMark(QStringLiteral("&"));
  static const QRegularExpression plainMark(QStringLiteral("&(?!\\w)"));
  const QRegularExpression& seen = ampersands == Ampersands::MarkMnemonics ? plainMark : everyMark;
  group->setTitle(elidedCaption(group, caption, onGroup).replace(seen, QStringLiteral("&&")));
}

void captionShortly(QLabel* label, const QString& caption) {
  label->setTextFormat(Qt::PlainText);
  label->setToolTip(QString());
  label->setAccessibleName(QString());
  label->setText(elidedCaption(label, caption, onShortLabel));
}

void enableUnless(const QString& reason, std::initializer_list<QWidget*> widgets) {
  static constexpr char ownToolTip[] = "ownToolTip";
  for (QWidget* widget : widgets) {
    if (!widget->property(ownToolTip).isValid())
      widget->setProperty(ownToolTip, widget->toolTip());
    widget->setToolTip(reason.isEmpty() ? widget->property(ownToolTip).toString() : reason);
    widget->setEnabled(reason.isEmpty());
  }
}
