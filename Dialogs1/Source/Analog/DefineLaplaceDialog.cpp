#include "Analog/DefineLaplaceDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QMessageBox>

#include <algorithm>
#include <cmath>
#include <iterator>

static const ScriptFunction declaration("DefineLaplaceDialog", 1, "SS", StringVectorResult,
                                        runDialogFunction<DefineLaplaceDialog, UserString>);

namespace {

enum Argument { Definition, Options };
enum Element { Expression };
enum Code { NoChecker = -1, Acceptable = 0, AlsoAcceptable = 5 };

bool ask(QWidget* over, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok | QMessageBox::Cancel, over);
  box.setTextFormat(Qt::RichText);
  return box.exec() == QMessageBox::Ok;
}

QString faultText(int code) {
  switch (code) {
  case NoChecker:
    return DefineLaplaceDialog::tr("<html><p>The Laplace expression has a syntax error.</p>");
  case int(LaplaceFault::Syntax):
    return DefineLaplaceDialog::tr("<html><p>The Laplace expression has a syntax error.</p>"
                                   "<p>Correct before continuing</p>");
  case int(LaplaceFault::Parentheses):
    return DefineLaplaceDialog::tr("<html><p>The Laplace expression has mis-matched "
                                   "parentheses.</p><p>Correct before continuing</p>");
  case int(LaplaceFault::UnknownName):
    return DefineLaplaceDialog::tr("<html><p>The Laplace expression uses one or more unknown "
                                   "functions.</p><p>Correct before continuing</p>");
  case int(LaplaceFault::Value):
    return DefineLaplaceDialog::tr(
        "<html><p>The Laplace expression has one or more invalid values. For example, a negative "
        "magnitude coefficient in a table function will lead to this error</p>");
  default:
    return {};
  }
}

} // namespace

DefineLaplaceDialog::DefineLaplaceDialog()
    : KelvarinDialog(nullptr, "DefineLaplaceDialog", true, {}) {
  form.setupUi(this);
  limitSizes();
  connectFields();
  rbTransferFunction_clicked();
  rbLumpedNetworkClicked();
  rbTryAllMethodsClicked();
  form.expressionEdit->setFocus(Qt::TabFocusReason);
  picture = std::make_unique<LaplacePicture>(form.picturePane);
  picture->setTabOrderBehind(form.checkbox);
  form.picturePane->start(form.pictureButton, [this] { return drawPicture(); });
}

DefineLaplaceDialog::~DefineLaplaceDialog() {
  if (checker)
    sp_UnloadLibrary(checkerPath.c_str());
}

int DefineLaplaceDialog::helpContextId() {
  return sp_GetHelpContextId("Laplace_Transfer_Function");
}

/// The larger transforms may grow with the machine.
void DefineLaplaceDialog::limitSizes() {
  constexpr int convolutionShare = 7; // powers of 2 below the memory
  constexpr int ifftShare = 6;
  SystemMemoryInfo memory;
  if (!sp_GetSystemMemoryInfo(&memory) || memory.total == 0)
    return;
  const int exponent = std::ilogb(double(memory.total));
  form.convolutionSizeEdit->setMax(exponent - convolutionShare);
  form.ifftSizeEdit->setMax(exponent - ifftShare);
}

void DefineLaplaceDialog::connectFields() {
  connect(form.tabWidget, &QTabWidget::currentChanged, this, &DefineLaplaceDialog::pageTurned);
  for (QRadioButton* button : {form.rbTransferFunction, form.rbImpedance, form.rbAdmittance})
    connect(button, &QRadioButton::clicked, this, &DefineLaplaceDialog::rbTransferFunction_clicked);
  for (QRadioButton* button : {form.rbLumpedNetwork, form.rbConvolution})
    connect(button, &QRadioButton::clicked, this, &DefineLaplaceDialog::rbLumpedNetworkClicked);
  for (QRadioButton* button :
       {form.rbTryAllMethods, form.rbAnalytic, form.rbInverseFFT, form.rbStehfest})
    connect(button, &QRadioButton::clicked, this, &DefineLaplaceDialog::rbTryAllMethodsClicked);
  connect(form.expressionEdit, &TextEdit::textChanged, form.picturePane, &PicturePane::refresh);
  for (Spinner* spinner : {form.frequencyScaleEdit, form.delayEdit})
    for (auto signal : {&Spinner::textChanged, &Spinner::changed})
      connect(spinner, signal, form.picturePane, &PicturePane::refresh);
}

void DefineLaplaceDialog::initialiseDialog() {
  loadOptions();
  chooseLayout();
  form.expressionEdit->load(texts(Definition).raw(Expression));
  KelvarinDialog::initialiseDialog();
  dimsSavingEnabled = true;
}

void DefineLaplaceDialog::loadOptions() {
  const Texts words = texts(Options);
  allowconvolution = simplemode = false;
  for (int place = words.count() - 1; place >= 0; --place) {
    allowconvolution = allowconvolution || words.is(place, "allowconvolution");
    simplemode = simplemode || words.is(place, "simplemode");
  }
}

void DefineLaplaceDialog::chooseLayout() {
  if (allowconvolution && !simplemode)
    return;
  form.tabWidget->removeTab(form.tabWidget->indexOf(form.advancedOptionsTab));
  setShown({form.implementationGroup, form.convolutionOptionsGroup}, false);
  setShown({form.delayEdit, form.delayLabel, form.delayInfoLabel}, simplemode);
  form.tabWidget->updateGeometry(); // its layout hears of no page before it is shown
}

void DefineLaplaceDialog::readDialog(UserDataType type, bool accepted) {
  if (!accepted)
    return;
  KelvarinDialog::readDialog(type, accepted);
  if (resultData->type == UserString && resultData->count > Expression)
    static_cast<char**>(resultData->data)[Expression] = hostString(expression().c_str());
}

void DefineLaplaceDialog::showEvent(QShowEvent* event) {
  rbLumpedNetworkClicked();
  rbTryAllMethodsClicked();
  KelvarinDialog::showEvent(event);
  resize(0, 0);
}

/// A page on which all is off would take the focus itself, where nobody sees it.
void DefineLaplaceDialog::pageTurned() {
  if (form.tabWidget->currentWidget()->hasFocus())
    form.tabWidget->setFocus(Qt::OtherFocusReason);
}

void DefineLaplaceDialog::rbTransferFunction_clicked() {
  const struct {
    QString label, title;
  } captions[] = {
      {tr("Define output using S variable"), tr("Define Laplace Transfer Function")},
      {tr("Define impedance using S variable"), tr("Define Impedance")},
      {tr("Define admittance using S variable"), tr("Define Admittance")},
  };
  const int type =
      std::clamp(int(form.deviceTypeGroupBox->value()), 0, int(std::size(captions)) - 1);
  form.expressionLabel->setText(captions[type].label);
  setWindowTitle(captions[type].title);
  setEnabled({form.inputGroupBox, form.outputGroupBox}, type == 0);
}

void DefineLaplaceDialog::rbLumpedNetworkClicked() {
  setEnabled({form.convolutionOptionsGroup, form.errorControlGroup,
              form.impulseExtractionMethodGroup, form.diagnosticsGroup},
             form.rbConvolution->isChecked());
}

void DefineLaplaceDialog::rbTryAllMethodsClicked() {
  setEnabled({form.ifftSizeEdit, form.ifftSizeLabel, form.ifftSizeInfoLabel},
             form.rbTryAllMethods->isChecked() || form.rbInverseFFT->isChecked());
}

QString DefineLaplaceDialog::drawPicture() {
  return picture->draw(expression().c_str(), form.frequencyScaleEdit->number(),
                       form.delayEdit->number());
}

YString DefineLaplaceDialog::expression() const {
  return YString(form.expressionEdit->bytes().constData());
}

/// One in braces counts as 0, as everywhere: who means it chooses convolution.
bool DefineLaplaceDialog::hasDelay() const {
  return form.delayEdit->value() != 0.0;
}

int DefineLaplaceDialog::codeOf(const YString& text) {
  constexpr const char* entry = "laplace_CheckLaplaceExpression";
  if (!checker) {
    YArray<YString> found;
    if (sp_SearchDLLs(&found, "devices", "Laplace_2.*", {}) > 0) {
      checkerPath = found[0];
      checker = reinterpret_cast<int (*)(const char*)>(
          sp_GetLibraryFunction(checkerPath.c_str(), entry, false, "", false));
    }
  }
  return checker ? checker(text.c_str()) : NoChecker;
}

bool DefineLaplaceDialog::canBeLumped(const YString& text) const {
  double first[laplaceCoefficients] = {};
  double second[laplaceCoefficients] = {};
  XSpiceParseLaplaceArgs args{text.c_str(), first, 0, second, 0, -1, 0};
  sp_ParseLaplaceExpression(&args);
  return args.status == 0;
}

void DefineLaplaceDialog::okClicked() {
  switch (check()) {
  case Verdict::Accept:
    KelvarinDialog::okClicked();
    break;
  case Verdict::Reject:
    reject();
    break;
  case Verdict::Stay:
    returnToExpression();
  }
}

DefineLaplaceDialog::Verdict DefineLaplaceDialog::check() {
  const YString text = expression();
  const int code = codeOf(text);
  if (code != NoChecker && code != Acceptable && code != AlsoAcceptable)
    return refuse(text, code);
  if (!hasDelay() && canBeLumped(text)) {
    if (simplemode)
      form.rbLumpedNetwork->setChecked(true);
    return Verdict::Accept;
  }
  return code == NoChecker ? refuse(text, code) : requireConvolution();
}

DefineLaplaceDialog::Verdict DefineLaplaceDialog::requireConvolution() {
  if (!simplemode) {
    if (allowconvolution && !form.rbLumpedNetwork->isChecked())
      return Verdict::Accept;
    const QString text =
        allowconvolution
            ? tr("<html><p>The Laplace definition entered can only be implemented using the "
                 "convolution method.</p><p>Select <strong>OK</strong> to accept change</p>"
                 "<p>Select <strong>Cancel</strong> to re-enter expression</p>")
            : tr("<html><p>The Laplace definition entered can only be implemented using the "
                 "convolution method.</p>To use this method the symbol needs to be converted to a "
                 "format which will not be compatible with version 8.0 or earlier<p>Select "
                 "<strong>OK</strong> to accept change</p><p>Select <strong>Cancel</strong> to "
                 "re-enter expression</p>");
    if (!ask(this, tr("Requires Convolution"), text))
      return Verdict::Stay;
  }
  form.rbConvolution->setChecked(true);
  return Verdict::Accept;
}

DefineLaplaceDialog::Verdict DefineLaplaceDialog::refuse(const YString& text, int code) {
  const QString fault = text.isEmpty() ? tr("<html><p>No Laplace expression has been entered.</p>"
                                            "<p>Correct before continuing</p>")
                                       : faultText(code);
  const QString choices = tr("<p>Select <strong>OK</strong> to re-enter expression</p>"
                             "<p>Select <strong>Cancel</strong> to cancel operation</p>");
  return ask(this, tr("Invalid Laplace Expression"), fault + choices) ? Verdict::Stay
                                                                      : Verdict::Reject;
}

/// To the place of the fault, where the reader of expressions sees one.
void DefineLaplaceDialog::returnToExpression() {
  form.tabWidget->setCurrentWidget(form.definitionTab);
  form.expressionEdit->setFocus(Qt::OtherFocusReason);
  const YString text = expression();
  const LaplaceExpression read(text.c_str());
  if (read.fault() == LaplaceFault::None)
    return;
  QTextCursor cursor = form.expressionEdit->textCursor();
  cursor.setPosition(std::min(charactersBefore(text.c_str(), read.position()),
                              form.expressionEdit->toPlainText().size()));
  form.expressionEdit->setTextCursor(cursor);
}
