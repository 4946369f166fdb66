#include "InputDialog.h"

#include "FieldCaption.h"
#include "HostSupportQt/HostSupportQt.h"
#include "ScriptFunction.h"

static const ScriptFunction graphDeclaration("InputGraph", 0, "SS", StringVectorResult,
                                             runDialogFunction<InputGraph, UserString>);
static const ScriptFunction schemDeclaration("InputSchem", 0, "SS", StringVectorResult,
                                             runDialogFunction<InputSchem, UserString>);

InputDialog::InputDialog(const char* objectName) : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
}

void InputDialog::initialiseDialog() {
  form.edit->setText(toQs(getString(0)));
  form.edit->setFocus(Qt::TabFocusReason);
  form.edit->selectAll();
  captionField(form.label, form.edit, toQs(getString(1)));
  form.helpButton->hide();
}

void InputDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    setStringResult(toYs(form.edit->text()));
}
