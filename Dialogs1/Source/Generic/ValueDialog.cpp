#include "Generic/ValueDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/Spinner.h"

#include <algorithm>

namespace {

enum Argument { Values, Captions, Title, Mode };

} // namespace

static int runValueDialog(UserFunctionInterface* call) {
  if (refusesRowCount(ValueDialog::rowCount(call)))
    return 0;
  return runDialogFunction<ValueDialog, UserReal>(call);
}

static const ScriptFunction declaration("ValueDialog", 0, "RSSS", RealVectorResult, runValueDialog);

ValueDialog::ValueDialog() : RowBox("ValueDialog") {
  form.helpButton->hide();
  hideSelectButtons();
}

unsigned ValueDialog::rowCount(UserFunctionInterface* call) {
  return std::min(realCount(call, Values), Texts(call, Captions).count());
}

void ValueDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const double* values = nullptr;
  unsigned count = 0;
  getRealVector(Values, &values, &count);
  const Texts captions = texts(Captions);
  mode = valueModeOf(getString(Mode));

  {
    // The rows' first values are nobody's change: none of them may set a limit by being loaded.
    const Updating guard(this);
    for (unsigned row = 0; row < rowCount(args); ++row)
      addRow(static_cast<int>(row), captions.text(row), values[row]);
    applyLinkedLimits();
  }
  setWindowTitle(toQs(getString(Title)));
  finishRows(rowSpinner("Spinner0"));
  KelvarinDialog::prepareDialog(args, type);
}

void ValueDialog::addRow(int row, const QString& caption, double value) {
  auto* spinner = new Spinner(form.groupBox, QByteArray("Spinner" + QByteArray::number(row)));
  spinner->setMinimumSize(75, 0);
  addCaptioned(spinner, caption, row, 0);

  const ValueRowRule rule = valueRowRule(mode, row);
  if (isLinkedRow(mode, row))
    connect(spinner, &Spinner::changed, this,
            row == 0 ? &ValueDialog::box1Change : &ValueDialog::box2Change);
  spinner->setIncrement(rule.firstStep);
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
  if (!first || !second)
    return;
  if (const auto limit = second->number())
    first->setMax(*limit);
}

Spinner* ValueDialog::rowSpinner(const char* name) const {
  return static_cast<Spinner*>(qtsp_SearchChild(this, name, "Spinner", true));
}
