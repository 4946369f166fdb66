#include "Generic/ParametersDialog.h"

namespace {

enum Argument { Names = 2, Values };

} // namespace

ParametersDialog::ParametersDialog(QWidget* parent, const char* objectName)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
  form.okButton->setText(tr("&Close"));
  form.cancelButton->hide();
}

OwnedParameters::OwnedParameters(KelvarinDialog* owner, UserFunctionInterface* args,
                                 UserDataType type)
    : parameters(new ParametersDialog(owner)) {
  parameters->prepareDialog(args, type);
}

bool ParametersDialog::arePassed(UserFunctionInterface* call) {
  return !Texts(call, Names).isEmpty() && !Texts(call, Values).isEmpty();
}

char** ParametersDialog::writeCountAndValues(UserFunctionInterface* call, char** slot) const {
  const int count = view()->vectorSize();
  *slot++ = call->hostString(YString(count).c_str());
  UserReturnData values{slot, UserString, static_cast<unsigned>(count)};
  view()->readWidget(&values, call);
  return slot + count;
}
