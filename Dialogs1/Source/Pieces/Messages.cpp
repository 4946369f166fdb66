#include "Pieces/Messages.h"

#include "Pieces/Captions.h"

#include <QMessageBox>

static constexpr int longestRun = 60; // characters in which a line does not break

void warn(QWidget* over, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, over);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

QString asTyped(const QString& text) {
  QString rich;
  int run = 0;
  for (const QChar character : shownCaption(text)) {
    run = character.isSpace() ? 0 : run + 1;
    if (run > longestRun && !character.isLowSurrogate()) {
      rich += QChar(0x200b);
      run = 1;
    }
    if (character == QLatin1Char('<'))
      rich += QLatin1String("&lt;");
    else if (character == QLatin1Char('&'))
      rich += QLatin1String("&amp;");
    else
      rich += character;
  }
  return rich;
}
