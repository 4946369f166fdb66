#include "Analog/NewPassiveDialog.h"

#include "Core/Pieces/AsWritten.h"
#include "Frame/ScriptFunction.h"
#include "Pieces/Captions.h"

#include <cmath>

static const ScriptFunction declaration("NewPassiveDialog", 1, "SSSS", StringVectorResult,
                                        runDialogFunction<NewPassiveDialog, UserString>);

namespace {

enum Argument { Value, Settings };
enum Setting : unsigned { GroupTitle, Series };

} // namespace

NewPassiveDialog::NewPassiveDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
  form.initialConditionGroup->hide();
  using Self = NewPassiveDialog;
  connect(form.baseEdit, &Spinner::changed, this, &Self::baseEdit_changed);
  connect(form.decadeEdit, &Spinner::changed, this, &Self::baseEdit_changed);
  connect(form.baseEdit, &Spinner::decrementing, this, &Self::baseEdit_decrementing);
  connect(form.baseEdit, &Spinner::incrementing, this, &Self::baseEdit_incrementing);
  connect(form.decadeEdit, &Spinner::decrementing, this, &Self::decadeEdit_decrementing);
  connect(form.decadeEdit, &Spinner::incrementing, this, &Self::decadeEdit_incrementing);
  connect(form.resultEdit, &Spinner::changed, this, &Self::resultEdit_changed);
  connect(form.parametersButton, &QPushButton::clicked, this, &Self::parametersButton_clicked);
  for (const QRadioButton* button : {form.rbE6, form.rbE12, form.rbE24})
    connect(button, &QRadioButton::clicked, this, &Self::rbE6_clicked);
  for (const QRadioButton* button : {form.rbOpenCircuit, form.rbInitialVoltage})
    connect(button, &QRadioButton::clicked, this,
            [this] { radioGroup_clicked(form.rbInitialVoltage->isChecked()); });
}

void NewPassiveDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  KelvarinDialog::prepareDialog(args, type);
  resize(form.valueGroupBox->minimumSizeHint());
  dialogData = std::make_unique<NewPassiveDialogData>(this, args, type);
}

void NewPassiveDialog::initialiseDialog() {
  const Texts settings = texts(Settings);
  form.resultEdit->setText(texts(Value).text(0));
  const bool isE12 = !settings.has(Series) || settings.is(Series, "E12");
  (isE12 ? form.rbE12 : settings.is(Series, "E6") ? form.rbE6 : form.rbE24)->setChecked(true);
  captionGroup(form.valueGroupBox,
               settings.has(GroupTitle) ? settings.text(GroupTitle) : tr("Select value"));
  form.parametersButton->setVisible(ParametersDialog::arePassed(scriptArgs));
  form.resultEdit->selectAll();
  form.resultEdit->setFocus(Qt::TabFocusReason);
  dimsSavingEnabled = true;
  KelvarinDialog::initialiseDialog();
}

void NewPassiveDialog::readDialog(UserDataType, bool accepted) {
  if (accepted)
    makeResult({form.resultEdit->stringValue()});
}

void NewPassiveDialog::makeResult(const QStringList& first, const QStringList& last) const {
  const int parameterCount = parameters()->view()->vectorSize();
  char** slot = makeStringResult(first.size() + 1 + parameterCount + last.size());
  if (!slot)
    return;
  for (const QString& text : first)
    *slot++ = hostString(text);
  slot = parameters()->writeCountAndValues(scriptArgs, slot);
  for (const QString& text : last)
    *slot++ = hostString(text);
}

// ---- base, decade and result --------------------------------------------------------------------

void NewPassiveDialog::baseEdit_changed(const QString&) {
  const std::optional<double> base = form.baseEdit->number();
  const std::optional<double> decade = form.decadeEdit->number();
  if (updating || !base || !decade)
    return;
  const Updating guard(this);
  form.resultEdit->setValue(asWritten(*base * *decade));
}

void NewPassiveDialog::resultEdit_changed(const QString&) {
  if (updating || form.resultEdit->isExpression())
    return;
  const Updating guard(this);
  const BaseAndDecade split = splitValue(form.resultEdit->value());
  form.decadeEdit->setValue(split.decade);
  form.baseEdit->setValue(split.base);
}

PreferredSeries NewPassiveDialog::series() const {
  return form.rbE6->isChecked()    ? PreferredSeries::E6
         : form.rbE12->isChecked() ? PreferredSeries::E12
                                   : PreferredSeries::E24;
}

void NewPassiveDialog::baseEdit_decrementing(double* value) {
  *value = preferredBelow(*value, series());
}

void NewPassiveDialog::baseEdit_incrementing(double* value) {
  *value = preferredAbove(*value, series());
}

void NewPassiveDialog::decadeEdit_decrementing(double* value) {
  const double lower = asWritten(*value / 10);
  if (std::isnormal(lower)) // from 0 no step would lead back
    *value = lower;
}

void NewPassiveDialog::decadeEdit_incrementing(double* value) {
  *value = asWritten(*value * 10);
}

// ---- parameters and initial condition -----------------------------------------------------------

void NewPassiveDialog::parametersButton_clicked() {
  if (parameters())
    parameters()->exec();
}

void NewPassiveDialog::radioGroup_clicked(bool hasInitialCondition) {
  setEnabled({form.editInitialVoltage, form.cbOp, form.cbTransient, form.cbAC, form.cbDC},
             hasInitialCondition);
}
