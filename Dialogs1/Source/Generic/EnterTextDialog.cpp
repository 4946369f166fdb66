#include "Generic/EnterTextDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/CaptionLabel.h"

static const ScriptFunction declaration("EnterTextDialog", 1, "S", StringVectorResult,
                                        runDialogFunction<EnterTextDialog, UserString>);

namespace {

enum Argument { Settings };
enum Setting { InitialText, Caption };

} // namespace

EnterTextDialog::EnterTextDialog() : KelvarinDialog(nullptr, "EnterTextDialog", true, {}) {
  form.setupUi(this);
}

void EnterTextDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const Texts settings = texts(Settings);
  form.editBox->load(settings.raw(InitialText));
  form.editBox->setFocus(Qt::TabFocusReason);
  captionField(form.label, form.editBox, settings.text(Caption));
}

void EnterTextDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    setStringResult(YString(form.editBox->bytes().constData()));
}
