#include "Analog/DCSourceDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DCSourceDialog", 1, "R", RealVectorResult,
                                        runDialogFunction<DCSourceDialog, UserReal>);

static int runWithTexts(UserFunctionInterface* call) {
  DCSourceDialog("DCSourceDialogStr").runDialog(call, UserString);
  return 0;
}

static const ScriptFunction textDeclaration("DCSourceDialogStr", 1, "S", StringVectorResult,
                                            runWithTexts);

DCSourceDialog::DCSourceDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
  using Self = DCSourceDialog;
  connect(form.zeroButton, &QPushButton::clicked, this, &Self::zeroButton_clicked);
  connect(form.plusFiveButton, &QPushButton::clicked, this, &Self::plusFiveButton_clicked);
  connect(form.plusTwelveButton, &QPushButton::clicked, this, &Self::plusTwelveButton_clicked);
  connect(form.plusFifteenButton, &QPushButton::clicked, this, &Self::plusFifteenButton_clicked);
}

void DCSourceDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  form.dcEdit->selectAll();
  form.dcEdit->setFocus(Qt::TabFocusReason);
}

void DCSourceDialog::zeroButton_clicked() {
  form.dcEdit->setValue(0);
}

void DCSourceDialog::plusFiveButton_clicked() {
  form.dcEdit->setValue(5);
}

void DCSourceDialog::plusTwelveButton_clicked() {
  form.dcEdit->setValue(12);
}

void DCSourceDialog::plusFifteenButton_clicked() {
  form.dcEdit->setValue(15);
}
