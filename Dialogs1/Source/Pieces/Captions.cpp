#include "Pieces/Captions.h"

#include "HostSupportQt/Captions.h"
#include "HostSupportQt/RichText.h"

#include <QLabel>

static constexpr int longestCaption = 500; // characters

QString shownCaption(const QString& text) {
  return text.size() > longestCaption ? text.left(longestCaption - 1) + QChar(0x2026) : text;
}

QString labelText(const QString& text) {
  return harmlessText(shownCaption(text));
}

void captionField(QLabel* label, QWidget* field, const QString& caption) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  label->setText(labelText(caption));
  label->setVisible(!caption.isEmpty());
  const QString name = plainText(shownCaption(caption));
  field->setAccessibleName(name.isEmpty() ? field->window()->windowTitle() : name);
}
