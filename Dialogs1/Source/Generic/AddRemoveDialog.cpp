#include "Generic/AddRemoveDialog.h"

#include "Frame/ScriptFunction.h"

namespace {

enum Argument { Arrangement = 3 };

} // namespace

template <bool Plain> static int runAddRemoveDialog(UserFunctionInterface* call) {
  std::unique_ptr<BaseAddRemoveDialog> dialog;
  if (Texts(call, Arrangement).is(0, "vertical"))
    dialog = std::make_unique<AddRemoveDialog_2>(Plain);
  else
    dialog = std::make_unique<AddRemoveDialog>(Plain);
  dialog->runDialog(call, UserString);
  return 0;
}

static const ScriptFunction declaration("AddRemoveDialog", 2, "SSSS", StringVectorResult,
                                        runAddRemoveDialog<true>);
static const ScriptFunction declarationNew("AddRemoveDialogNew", 2, "SSSS", StringVectorResult,
                                           runAddRemoveDialog<false>);

AddRemoveDialog::AddRemoveDialog(bool plain) : BaseAddRemoveDialog("AddRemoveDialog", plain) {
  form.setupUi(this);
}

AddRemoveDialog_2::AddRemoveDialog_2(bool plain) : BaseAddRemoveDialog("AddRemoveDialog_2", plain) {
  form.setupUi(this);
}
