#include "Properties/UserParametersDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"

static const ScriptFunction declaration("UserParametersDialog", 2, "SSS", StringVectorResult,
                                        runDialogFunction<UserParametersDialog, UserString>);

namespace {

enum Argument { Names, Values, Title };

} // namespace

UserParametersDialog::UserParametersDialog() : ParametersDialog(nullptr, "UserParametersDialog") {
  view()->nameArgIndex = Names;
  view()->argIndex = Values;
  form.okButton->setText(tr("&Ok"));
  form.cancelButton->show();
}

void UserParametersDialog::initialiseDialog() {
  setWindowTitle(shownCaption(texts(Title).text(0, windowTitle())));
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
