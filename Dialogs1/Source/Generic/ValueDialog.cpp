#include "Generic/ValueDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/Spinner.h"

#include <algorithm>

static int runValueDialog(UserFunctionInterface* call) {
  if (refusesRowCount(ValueDialog::rowCount(call), "ValueDialog"))
    return 0;
  return runDialogFunction<ValueDialog, UserReal>(call);
}

static const ScriptFunction declaration("ValueDialog", 0, "RSSS", RealVectorResult, runValueDialog);

ValueDialog::ValueDialog() : RowBox("ValueDialog") {
  form.helpButton->hide();
  hideSelectButtons();
}

unsigned ValueDialog::rowCount(UserFunctionInterface* call) {
  return std::min(realCount(call, 0), stringCount(call, 1));
}

void ValueDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const double* values = nullptr;
  const char* const* captions = nullptr;
  unsigned count = 0;
  getRealVector(0, &values, &count);
  getStringVector(1, &captions, &count);
  mode = valueModeOf(getString(3));

  {
    // The rows' first values are nobody's change: none of them may set a limit by being loaded.
    const Updating guard(this);
    const int rows = static_cast<int>(rowCount(args));
    for (int row = 0; row < rows; ++row)
      addRow(row, captions[row], values[row]);
    applyLinkedLimits();
  }
  setWindowTitle(toQs(getString(2)));
  finishRows(rowSpinner("Spinner0"));
  KelvarinDialog::prepareDialog(args, type);
}

void ValueDialog::addRow(int row, const char* caption, double value) {
  auto* spinner = new Spinner(form.groupBox, QByteArray("Spinner" + QByteArray::number(row)));
  spinner->setMinimumSize(75, 0);
  addCaptioned(spinner, QString::fromUtf8(caption), row, 0);

  const ValueRowRule rule = valueRowRule(mode, row);
  if (isLinkedRow(mode, row))
    connect(spinner, &Spinner::changed, this,
            row == 0 ? &ValueDialog::box1Change : &ValueDialog::box2Change);
  if (rule.plainIncrement) {
    spinner->setStep125(false);
    spinner->setEngMode(false);
    spinner->setIncrement(*rule.plainIncrement);
  }
  if (rule.min)
    spinner->setMin(*rule.min);
  if (rule.max)
    spinner->setMax(*rule.max);
  spinner->setValue(value);
  spinner->outElementIndex = row;
}

void ValueDialog::applyLinkedLimits() {
  Spinner* first = rowSpinner("Spinner0");
  Spinner* second = rowSpinner("Spinner1");
  if (!first || !second)
    return;
  const ValueRowLink link = valueRowLink(mode, first->value(), second->value());
  if (link.value)
    second->setValue(*link.value);
  if (link.min)
    second->setMin(*link.min);
  if (link.max)
    second->setMax(*link.max);
}

void ValueDialog::box1Change(const QString&) {
  applyLinkedLimits();
}

void ValueDialog::box2Change(const QString&) {
  if (updating)
    return;
  Spinner* first = rowSpinner("Spinner0");
  Spinner* second = rowSpinner("Spinner1");
  // The value of an expression is not known here, and no limit can follow from it.
  if (first && second && !second->isExpression())
    first->setMax(second->value());
}

Spinner* ValueDialog::rowSpinner(const char* name) const {
  return static_cast<Spinner*>(qtsp_SearchChild(this, name, "Spinner", true));
}
