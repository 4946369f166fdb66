#include "RadioSelect.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Integers.h"
#include "ObjectNames.h"
#include "RowBox.h"
#include "ScriptFunction.h"

#include <QRadioButton>

static int runRadioSelect(UserFunctionInterface* call) {
  if (!refusesRowCount(stringCount(call, 1), "RadioSelect"))
    return runDialogFunction<RadioSelect, UserReal>(call);
  // A script that could not ask takes it as if the user had said no.
  if (double* result = call->makeRealResult(call, 1, nullptr))
    *result = 0;
  return 0;
}

static const ScriptFunction declaration("RadioSelect", 0, "RSSS", RealVectorResult, runRadioSelect);

static constexpr unsigned defaultButtons = 6;

RadioSelect::RadioSelect() : KelvarinDialog(nullptr, "RadioSelect", true, {}) {
  form.setupUi(this);
}

int RadioSelect::helpContextId() {
  return helpNumber.isEmpty() ? -1 : truncatedToInt(sp_ConvertEngToReal(helpNumber));
}

void RadioSelect::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  helpNumber = getString(3);
  form.helpButton->setVisible(helpContextId() > -1);
  KelvarinDialog::prepareDialog(args, type);
}

void RadioSelect::initialiseDialog() {
  const char* const* texts = nullptr;
  unsigned count = 0;
  getStringVector(2, &texts, &count);
  if (count > 0)
    setWindowTitle(QString::fromUtf8(texts[0]));
  setObjectName(toQs(hashedObjectName("RadioSelect", toYs(windowTitle()))));
  dimsSavingEnabled = true;

  const QString heading = captionAt(texts, count, 1);
  form.label->setText(heading);
  if (heading.isEmpty()) {
    form.verticalLayout->removeWidget(form.label);
    form.label->hide();
  }
  const QString option = captionAt(texts, count, 2);
  hasCheckBox = !option.isEmpty();
  form.checkBox->setText(option);
  form.checkBox->setVisible(hasCheckBox);
  fillGroup();
}

void RadioSelect::fillGroup() {
  const char* const* captions = nullptr;
  unsigned count = 0;
  getStringVector(1, &captions, &count);
  const int buttons = static_cast<int>(count > 0 ? count : defaultButtons);
  const double chosen = getReal(0);
  QRadioButton* first = nullptr;
  for (int i = 0; i < buttons; ++i) {
    const QString standIn = tr("Button %1").arg(i + 1);
    auto* button =
        new QRadioButton(count > 0 ? captionAt(captions, count, static_cast<unsigned>(i)) : standIn,
                         form.radioGroup1);
    button->setObjectName(QStringLiteral("RadioButton%1").arg(i));
    if (button->text().isEmpty())
      button->setAccessibleName(standIn);
    form.radioGroup1Layout->addWidget(button);
    const bool checked = truncatedToInt(chosen) == i + 1;
    button->setChecked(checked);
    if (!first || checked)
      first = button;
  }
  form.radioGroup1Layout->addStretch(1);
  scrollWhenTall(form.radioGroup1);
  first->setFocus(Qt::TabFocusReason);
}

void RadioSelect::readDialog(UserDataType, bool accepted) {
  const double number = accepted ? form.radioGroup1->value() + 1 : 0;
  const bool both = hasCheckBox && number != 0;
  double* result = makeRealResult(both ? 2 : 1);
  if (!result)
    return;
  result[0] = number;
  if (both)
    result[1] = form.checkBox->isChecked() ? 1 : 0;
}
