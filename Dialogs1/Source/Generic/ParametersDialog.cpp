#include "Generic/ParametersDialog.h"

ParametersDialog::ParametersDialog(QWidget* parent, const char* objectName)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
  form.okButton->setText(tr("&Close"));
  form.cancelButton->hide();
}
