#include "Pieces/LineEdits.h"

#include <QLineEdit>

#include <algorithm>

static constexpr int widestField = 40; // characters, as wide as on the average

static int widestText(const QLineEdit* edit) {
  return widestField * edit->fontMetrics().averageCharWidth();
}

QLineEdit* lineEditOf(QWidget* field) {
  return qobject_cast<QLineEdit*>(field->focusProxy() ? field->focusProxy() : field);
}

void selectWhole(QLineEdit* edit) {
  const QString text = edit->text();
  if (edit->fontMetrics().horizontalAdvance(text.left(2 * widestField)) <= widestText(edit))
    edit->selectAll();
  else
    edit->setSelection(text.size(), -text.size());
}

void fitText(QWidget* field) {
  QLineEdit* edit = lineEditOf(field);
  if (!edit)
    return;
  edit->setCursorPosition(0);
  const QFontMetrics metrics = edit->fontMetrics();
  const int text =
      std::min(metrics.horizontalAdvance(edit->text().left(2 * widestField)), widestText(edit));
  // What the field needs beside its text: frame, arrows, room for the cursor.
  const int letter = metrics.horizontalAdvance(QLatin1Char('x'));
  const int rest = field->minimumSizeHint().width() + letter;
  field->setMinimumWidth(std::max(field->minimumWidth(), text + rest));
}
