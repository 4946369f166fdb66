#include "Pieces/Messages.h"

#include <QMessageBox>

void warn(QWidget* over, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, over);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}
