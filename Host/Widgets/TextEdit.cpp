#include "HostWidgets/TextEdit.h"

#include "HostSupport/Arguments.h"
#include "HostSupport/Numbers.h"
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

bool TextEdit::initialiseWidget(UserFunctionInterface* call) {
  const char* const* texts = nullptr;
  unsigned count = 0;
  if (elementIndex < 0 || !sp_GetStringIfVector(call, argIndex, &texts, &count) ||
      static_cast<unsigned>(elementIndex) >= count)
    return false;
  load(texts[elementIndex]);
  return true;
}

bool TextEdit::readWidget(UserReturnData* result, const UserFunctionInterface* call) {
  if (!result || !result->data || result->count == 0 || !call)
    return false;
  if (result->type == UserString)
    *static_cast<char**>(result->data) = call->hostString(bytes().constData());
  else
    *static_cast<double*>(result->data) = sp_ConvertEngToReal(bytes().constData());
  return true;
}

QByteArray TextEdit::bytes() const {
  const QString shown = toPlainText();
  return document()->isModified() || shown != m_shown ? shown.toUtf8() : m_loaded;
}

void TextEdit::load(const QByteArray& text) {
  setPlainText(QString::fromUtf8(text));
  m_loaded = text;
  m_shown = toPlainText();
}
