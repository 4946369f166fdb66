#include "Pieces/ScriptTexts.h"

#include <QLabel>

static constexpr int longestCaption = 500; // characters

QString textAt(const char* const* texts, unsigned count, unsigned index) {
  return index < count ? QString::fromUtf8(texts[index]) : QString();
}

QStringList textsOf(const char* const* texts, unsigned count) {
  QStringList list;
  list.reserve(static_cast<int>(count));
  for (unsigned i = 0; i < count; ++i)
    list.append(textAt(texts, count, i));
  return list;
}

QString shownCaption(const QString& text) {
  return text.size() > longestCaption ? text.left(longestCaption - 1) + QChar(0x2026) : text;
}

QString captionAt(const char* const* texts, unsigned count, unsigned index) {
  return shownCaption(textAt(texts, count, index));
}

void captionField(QLabel* label, QWidget* field, const QString& caption) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  label->setText(shownCaption(caption));
  label->setVisible(!caption.isEmpty());
  field->setAccessibleName(caption.isEmpty() ? field->window()->windowTitle()
                                             : shownCaption(caption));
}
