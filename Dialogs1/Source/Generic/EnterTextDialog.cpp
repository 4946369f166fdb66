#include "Generic/EnterTextDialog.h"

#include "Frame/ScriptFunction.h"
#include "Generic/RowBox.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ScriptTexts.h"

static const ScriptFunction declaration("EnterTextDialog", 1, "S", StringVectorResult,
                                        runDialogFunction<EnterTextDialog, UserString>);

EnterTextDialog::EnterTextDialog() : KelvarinDialog(nullptr, "EnterTextDialog", true, {}) {
  form.setupUi(this);
}

void EnterTextDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const char* const* texts = nullptr;
  unsigned count = 0;
  getStringVector(0, &texts, &count);
  form.editBox->setPlainText(textAt(texts, count, 0));
  form.editBox->setFocus(Qt::TabFocusReason);
  captionField(form.label, form.editBox, textAt(texts, count, 1));
}

void EnterTextDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    setStringResult(toYs(form.editBox->toPlainText()));
}
