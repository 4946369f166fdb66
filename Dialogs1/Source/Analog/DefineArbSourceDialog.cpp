#include "Analog/DefineArbSourceDialog.h"

#include "Core/Analog/ArbExpression.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/Options.h"
#include "HostSupport/Registration.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Messages.h"
#include "vecdll_dynexport.h"

#include <QMessageBox>
#include <QPushButton>

#include <cmath>

static const ScriptFunction declaration("DefineArbSourceDialog", 1, "SS", StringVectorResult,
                                        runDialogFunction<DefineArbSourceDialog, UserString>);
KV_DYN_CALL(evaluateExpression, dyn_EvaluateExpression);

static constexpr const char* source = "Dialogs1/Source/DefineArbSourceDialog";
static constexpr const char* dontWarnOption = "DontWarnArbLogFunction";
static const MakeOption dontWarn(source, 22, dontWarnOption, false);
// The layout rests on the script's argument alone; the key is kept for the host's list of options.
static const MakeOption useOldGui(source, 24, "UseOldArbSourceGui", false);

namespace {

enum Argument { Definition, Layout };
enum Element { Expression };

/// A host that cannot evaluate leaves the dialog usable: the harmless value counts.
double evaluated(const QString& script, double harmless) {
  try {
    return evaluateExpression(toYs(script));
  } catch (...) {
    return harmless;
  }
}

} // namespace

DefineArbSourceDialog::DefineArbSourceDialog()
    : KelvarinDialog(nullptr, "DefineArbSourceDialog", true, Qt::WindowContextHelpButtonHint) {
  form.setupUi(this);
}

int DefineArbSourceDialog::helpContextId() {
  return sp_GetHelpContextId("Non_linear_Transfer_Function");
}

void DefineArbSourceDialog::initialiseDialog() {
  form.expressionEdit->setPlainText(texts(Definition).text(Expression));
  showLayout(texts(Layout).is(0, "advanced"));
  resize(0, 0);
  KelvarinDialog::initialiseDialog();
  dimsSavingEnabled = true;
}

void DefineArbSourceDialog::showLayout(bool isAdvanced) {
  form.inputGroupBox->setHidden(isAdvanced); // the inputs follow from the expression
  setShown({form.implementationGroupBox, form.parametersGroupBox}, isAdvanced);
  if (!isAdvanced)
    form.expressionLabel->setText(tr("Use I(Vn) for input currents and V(Nn) for input voltages"));
}

QByteArray DefineArbSourceDialog::expressionBytes() const {
  return form.expressionEdit->document()->isModified()
             ? form.expressionEdit->toPlainText().toUtf8()
             : QByteArray(texts(Definition).raw(Expression));
}

void DefineArbSourceDialog::readDialog(UserDataType type, bool accepted) {
  if (!accepted)
    return;
  KelvarinDialog::readDialog(type, accepted);
  char** const elements = static_cast<char**>(resultData->data);
  if (resultData->type != UserString || resultData->count == 0 || !elements ||
      !elements[Expression])
    return;
  if (char* text = hostString(expressionBytes().constData()))
    elements[Expression] = text;
}

void DefineArbSourceDialog::okClicked() {
  switch (check(form.expressionEdit->toPlainText())) {
  case Verdict::Accept:
    return KelvarinDialog::okClicked();
  case Verdict::Edit:
    return form.expressionEdit->setFocus(Qt::OtherFocusReason);
  case Verdict::Reject:
    return reject();
  }
}

DefineArbSourceDialog::Verdict DefineArbSourceDialog::check(const QString& expression) {
  const double elements = evaluated(syntaxScript(expression), 1);
  if (elements == 0 || std::isnan(elements))
    return refuseSyntax(expression);
  if (evaluated(usesLogScript(expression), -1) > -1 && !sp_GetBoolOption(dontWarnOption))
    return warnOfLog(expression);
  if (evaluated(usesMScript(expression), 0) != 0)
    return refuseM(expression);
  return Verdict::Accept;
}

DefineArbSourceDialog::Verdict DefineArbSourceDialog::refuseSyntax(const QString& expression) {
  const bool isMatched = hasMatchingParentheses(expression);
  const QString title = isMatched ? tr("Syntax Error") : tr("Mismatched Parentheses");
  const QString text =
      isMatched ? tr("<html><p>There is a syntax error with the expression:</p><p><strong>%1"
                     "</strong></p><p>Please re-enter and try again</html>")
                : tr("<html><p>The expression has mis-matched parentheses:</p><p><strong>%1"
                     "</strong></p><p>Please re-enter and try again</html>");
  QMessageBox box(QMessageBox::Critical, title, text.arg(asTyped(expression)),
                  QMessageBox::Ok | QMessageBox::Cancel, this);
  return box.exec() == QMessageBox::Ok ? Verdict::Edit : Verdict::Reject;
}

DefineArbSourceDialog::Verdict DefineArbSourceDialog::warnOfLog(const QString& expression) {
  const QString text =
      tr("<html><p>The expression:</p><p><strong>%1</strong></p><p>Makes use of the log() function "
         "which can be ambiguous.<br>From version 9.2 Kelvarin interprets log() as log to base "
         "e<br>in common with other simulators. Kelvarin version 9.1 and <br>earlier interpret "
         "log() as log to base 10.</p><p>If you require compatibility with older Kelvarin "
         "versions<br>we recommend using <strong>ln()</strong> for log to base e and "
         "<strong>log10()</strong> for log to<br>base 10</html>");
  QMessageBox box(QMessageBox::Warning, tr("Use of log() Function"), text.arg(asTyped(expression)));
  QPushButton* edit = box.addButton(tr("Edit"), QMessageBox::AcceptRole);
  QPushButton* accept = box.addButton(tr("Accept"), QMessageBox::RejectRole);
  QPushButton* acceptAlways =
      box.addButton(tr("Accept and don't ask again"), QMessageBox::RejectRole);
  QPushButton* cancel = box.addButton(tr("Cancel"), QMessageBox::RejectRole);
  box.setDefaultButton(edit);
  box.setEscapeButton(cancel); // of several that reject, Qt takes none
  box.exec();
  if (box.clickedButton() == edit)
    return Verdict::Edit;
  if (box.clickedButton() == acceptAlways)
    sp_WriteOption(dontWarnOption, true);
  return box.clickedButton() == accept || box.clickedButton() == acceptAlways ? Verdict::Accept
                                                                              : Verdict::Reject;
}

DefineArbSourceDialog::Verdict DefineArbSourceDialog::refuseM(const QString& expression) {
  const QString text =
      tr("<html><p>The expression:</p><p><strong>%1</strong></p><p>uses the parameter <b>M</b>. "
         "This is reserved as a device multiplier and may not be used in an arbitrary source "
         "expression.</p>Choose a different name for this parameter</html>");
  QMessageBox box(QMessageBox::Critical, tr("M Parameter is Reserved"),
                  text.arg(asTyped(expression)), QMessageBox::Ok);
  box.exec();
  return Verdict::Edit;
}
