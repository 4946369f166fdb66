#include "ParametersDialog.h"

ParametersDialog::ParametersDialog(QWidget* parent, const char* objectName)
    : KelvarinDialog(parent, objectName, true, {}) {
  form.setupUi(this);
  setObjectName(QString::fromLatin1(objectName)); // the form has a name of its own
  form.okButton->setText(tr("&Close"));
  form.cancelButton->hide();
}
