#include "Analog/ACSourceDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("ACSourceDialog", 1, "R", RealVectorResult,
                                        runDialogFunction<ACSourceDialog, UserReal>);

static int runWithTexts(UserFunctionInterface* call) {
  ACSourceDialog("ACSourceDialogStr").runDialog(call, UserString);
  return 0;
}

static const ScriptFunction textDeclaration("ACSourceDialogStr", 1, "S", StringVectorResult,
                                            runWithTexts);

ACSourceDialog::ACSourceDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
}
