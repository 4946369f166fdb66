#include "HostWidgets/TextEdit.h"

TextEdit::TextEdit(QWidget* parent, const char* objectName) : QPlainTextEdit(parent) {
  setObjectName(QLatin1String(objectName));
  setTabChangesFocus(true);
}
