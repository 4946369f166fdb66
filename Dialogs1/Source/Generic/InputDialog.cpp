#include "Generic/InputDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/CaptionLabel.h"
#include "Pieces/LineEdits.h"

static const ScriptFunction graphDeclaration("InputGraph", 0, "SS", StringVectorResult,
                                             runDialogFunction<InputGraph, UserString>);
static const ScriptFunction schemDeclaration("InputSchem", 0, "SS", StringVectorResult,
                                             runDialogFunction<InputSchem, UserString>);

namespace {

enum Argument { InitialText, Caption };

} // namespace

InputDialog::InputDialog(const char* objectName, QWidget* parent)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
  form.helpButton->hide();
}

void InputDialog::initialiseDialog() {
  load(toQs(getString(InitialText)), toQs(getString(Caption)));
}

void InputDialog::load(const QString& text, const QString& caption) {
  form.edit->setText(text);
  form.edit->setFocus(Qt::TabFocusReason);
  fitText(form.edit);
  form.edit->selectAll();
  captionField(form.label, form.edit, caption);
}

void InputDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    setStringResult(toYs(text()));
}

std::optional<QString> askForText(QWidget* over, const QString& caption, const QString& initial) {
  InputDialog dialog("InputDialog", over);
  dialog.prepareDialog(nullptr, UserString);
  dialog.load(initial, caption);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.text()) : std::nullopt;
}
