#include "FieldCaption.h"

#include "RowBox.h"

#include <QLabel>

void captionField(QLabel* label, QWidget* field, const QString& caption) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  label->setText(shownCaption(caption));
  label->setVisible(!caption.isEmpty());
  field->setAccessibleName(caption.isEmpty() ? field->window()->windowTitle()
                                             : shownCaption(caption));
}
