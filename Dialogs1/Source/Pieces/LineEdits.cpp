#include "Pieces/LineEdits.h"

#include <QLineEdit>

#include <algorithm>

static constexpr int widestField = 40; // characters, as wide as on the average

QLineEdit* lineEditOf(QWidget* field) {
  return qobject_cast<QLineEdit*>(field->focusProxy() ? field->focusProxy() : field);
}

void fitText(QWidget* field) {
  QLineEdit* edit = lineEditOf(field);
  if (!edit)
    return;
  const QFontMetrics metrics = edit->fontMetrics();
  const int text = std::min(metrics.horizontalAdvance(edit->text().left(2 * widestField)),
                            widestField * metrics.averageCharWidth());
  // What the field needs beside its text: frame, arrows, room for the cursor.
  const int letter = metrics.horizontalAdvance(QLatin1Char('x'));
  const int rest = field->minimumSizeHint().width() + letter;
  field->setMinimumWidth(std::max(field->minimumWidth(), text + rest));
}
