#include "Properties/UserParametersDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ScriptTexts.h"

static const ScriptFunction declaration("UserParametersDialog", 2, "SSS", StringVectorResult,
                                        runDialogFunction<UserParametersDialog, UserString>);

UserParametersDialog::UserParametersDialog() : ParametersDialog(nullptr, "UserParametersDialog") {
  view()->nameArgIndex = 0;
  view()->argIndex = 1;
  form.okButton->setText(tr("&Ok"));
  form.cancelButton->show();
}

void UserParametersDialog::initialiseDialog() {
  YString title;
  if (getString(2, &title))
    setWindowTitle(shownCaption(toQs(title)));
  ParametersDialog::initialiseDialog();
}

void UserParametersDialog::readDialog(UserDataType, bool accepted) {
  const int count = view()->vectorSize();
  char** texts = accepted ? makeStringResult(count) : nullptr;
  if (!texts)
    return;
  *resultData = {texts, UserString, static_cast<std::uint32_t>(count)};
  view()->readWidget(resultData.get(), scriptArgs);
}
