#include "HostSupportQt/Captions.h"

#include "HostSupportQt/RichText.h"

#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QWidget>

QString plainCaption(const QString& caption) {
  QString plain;
  for (int i = 0; i < caption.size(); ++i) {
    if (caption.at(i) == QLatin1Char('&') && i + 1 < caption.size())
      ++i;
    plain.append(caption.at(i));
  }
  return plain.trimmed();
}

QString plainText(const QString& text) {
  if (!Qt::mightBeRichText(text))
    return text;
  QString plain = QTextDocumentFragment::fromHtml(harmlessText(text)).toPlainText();
  return plain.remove(QChar::ObjectReplacementCharacter).trimmed();
}

void describeByToolTips(const QWidget* window) {
  for (QWidget* widget : window->findChildren<QWidget*>())
    if (widget->accessibleDescription().isEmpty() && Qt::mightBeRichText(widget->toolTip()))
      widget->setAccessibleDescription(plainText(widget->toolTip()));
}
