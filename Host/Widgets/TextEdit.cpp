#include "HostWidgets/TextEdit.h"

#include "HostSupportQt/GuiThread.h"
#include "HostWidgets/Accessibility.h"

#include <QTextOption>

TextEdit::TextEdit(QWidget* parent, const char* objectName)
    : QPlainTextEdit(sp_GuiParent(parent, "TextEdit")) {
  installFieldAccessibility();
  setObjectName(QLatin1String(objectName));
  setTabChangesFocus(true);
  // Wrapping inside words takes time that grows with the square of an unbroken text.
  setWordWrapMode(QTextOption::WordWrap);
}
