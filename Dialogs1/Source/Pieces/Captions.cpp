#include "Pieces/Captions.h"

#include "HostSupportQt/RichText.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QRegularExpression>

static constexpr int longestCaption = 500; // characters
static constexpr int widestCaption = 60;   // of a button or a group, as wide as on the average

QString shownCaption(const QString& text) {
  return text.size() > longestCaption ? text.left(longestCaption - 1) + QChar(0x2026) : text;
}

QString labelText(const QString& text) {
  return harmlessText(shownCaption(text));
}

/// The caption as it is shown; where that is not all of it, the widget has the rest elsewhere.
static QString elidedCaption(QWidget* widget, const QString& caption) {
  const QFontMetrics metrics = widget->fontMetrics();
  const QString whole = shownCaption(caption);
  QString shown = whole;
  if (metrics.size(0, whole).width() > widestCaption * metrics.averageCharWidth()) {
    shown = metrics.elidedText(whole.simplified(), Qt::ElideMiddle,
                               widestCaption * metrics.averageCharWidth());
    widget->setToolTip(QStringLiteral("<p>%1</p>").arg(whole.toHtmlEscaped()));
    widget->setAccessibleName(whole);
  }
  return shown;
}

void captionButton(QAbstractButton* button, const QString& caption) {
  button->setText(elidedCaption(button, caption).replace(QLatin1Char('&'), QLatin1String("&&")));
}

void captionGroup(QGroupBox* group, const QString& caption) {
  // A script may give its lists mnemonics: "&Signals" has one, "R & D" has not.
  static const QRegularExpression plainMark(QStringLiteral("&(?!\\w)"));
  group->setTitle(elidedCaption(group, caption).replace(plainMark, QStringLiteral("&&")));
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
