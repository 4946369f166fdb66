#include "Pwl/ConvertPassiveToBRENNIXDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Messages.h"
#include "Pwl/PassiveToBRENNIXPlotter.h"
#include "Pwl/PointNotes.h"
#include "graphimagecapture_dynexport.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>

#include <algorithm>

KV_DYN_CALL(graphImageCapture, dyn_GraphImageCapture);

namespace {

enum Argument { Kind, Memory };
enum MemoryField : unsigned { Input, Output, LimitFlag, LimitValue };
enum Result { OutputText, InputText };

constexpr int maximumPoints = 1001;
constexpr int minimumCount = 1;
constexpr double mostSegments = 255;
constexpr double mostSegmentsOfMultiLevel = 11;

ConversionMemory memoryOf(const Texts& texts) {
  const auto field = [&texts](MemoryField place, const char* absent) {
    return texts.has(place) ? texts.text(place) : QString::fromLatin1(absent);
  };
  return {field(Input, ""), field(Output, ""), field(LimitFlag, "0"), field(LimitValue, "20")};
}

QString tooManyText() {
  return ConvertPassiveToBRENNIXDialog::tr(
      "This dialog box can handle a maximum of %1 PWL points.");
}

void showComputed(PointTable* table, const PwlPoints& points) {
  table->setPoints(points, 0, PointRow::Kind::Computed);
  table->startSteps(); // what was typed before goes with what it was typed into
}

QPixmap picture(const char* name) {
  QPixmap pixmap;
  sp_GetPixmap(QStringLiteral(":/%1.png").arg(QLatin1String(name)), &pixmap, 96);
  return pixmap;
}

void setIcon(QToolButton* button, const char* name) {
  const QPixmap pixmap = picture(name);
  button->setIcon(pixmap);
  button->setIconSize(pixmap.size() / pixmap.devicePixelRatio());
}

} // namespace

static int runConversion(UserFunctionInterface* call) {
  YString word;
  sp_GetScalarString(call, Kind, &word);
  ConvertPassiveToBRENNIXDialog dialog(nullptr, "ConvertPassiveToBRENNIXDialog", call,
                                       energyStorages.read(word, EnergyStorage::Capacitor),
                                       memoryOf(Texts(call, Memory)));
  if (dialog.exec() != QDialog::Accepted)
    return 0;
  TextVector result;
  result.set(OutputText, dialog.outputText);
  result.set(InputText, dialog.inputText);
  dialog.setTextsResult(result);
  return 0;
}

static const ScriptFunction declaration("ConvertPassiveToBRENNIXDialog", 1, "SS", NoResult,
                                        runConversion);

ConvertPassiveToBRENNIXDialog::ConvertPassiveToBRENNIXDialog(QWidget* parent,
                                                             const char* objectName,
                                                             UserFunctionInterface* call,
                                                             EnergyStorage storage,
                                                             const ConversionMemory& memory)
    : KelvarinDialog(parent, objectName, true, {}), inputText(memory.input),
      outputText(memory.output), limitFlag(memory.limitFlag), limitValue(memory.limitValue),
      host(call), kind(storage) {
  scriptArgs = call;
  prepareForm();
  showKind();
  form.limitGroupBox->setChecked(limitFlag != QLatin1String("0"));
  form.limitValueSpinner->setValue(limitValue.toDouble());
  loadInput();
  loadOutput();
  if (!inputText.isEmpty() && !outputText.isEmpty()) {
    setEnabled({form.okButton, form.plotButton}, true);
    setConverted();
    if (isConvertible())
      recompute();
  }
  connectControls();
}

void ConvertPassiveToBRENNIXDialog::prepareForm() {
  form.setupUi(this);
  form.RAW_DATA->hide();
  setEnabled({form.okButton, form.plotButton}, false);
  for (PointTable* table : {form.inputTable, form.outputPWLTable}) {
    table->setLimits({maximumPoints, minimumCount, tooManyText(), tr("Minimum segments"),
                      tr("You must have at least %1 segments")});
  }
  form.inputTable->addRowActions(form.inputTable);
  form.outputPWLTable->addStepActions(form.outputPWLTable);
  form.inputTable->setNumbersOnly();
  connect(form.inputTable, &PointTable::noted, form.pointNote, &QLabel::setText);
  setIcon(form.convertButton, "32x32_rightarrow_transparent_bg");
  setIcon(form.revertButton, "32x32_leftarrow_transparent_bg");

  // A box for a multi-level component offers no more segments than that has.
  const bool isMultiLevel = parent() && parent()->objectName().startsWith(QLatin1String("ML"));
  form.numSegSpinner->setMax(isMultiLevel ? mostSegmentsOfMultiLevel : mostSegments);
  numSegments = form.numSegSpinner->value();
  form.outputPWLTable->setRowCount(static_cast<int>(numSegments + 1));
}

void ConvertPassiveToBRENNIXDialog::showKind() {
  const auto choose = [this](const QString& capacitor, const QString& inductor) {
    return isInductor() ? inductor : capacitor;
  };
  helpContextNumber = isInductor() ? 3005 : 3004;
  form.inputGroup->setTitle(choose(tr("Capacitance (F) vs Voltage (V) input"),
                                   tr("Inductance (H) vs Current (A) input")));
  form.outputGroup->setTitle(choose(tr("Charge (C) vs Voltage (V) output"),
                                    tr("Flux Linkages (*) vs Current (A) output")));
  const QString xHeading = choose(tr("Voltage"), tr("Current"));
  form.inputTable->setHorizontalHeaderLabels(
      {xHeading, choose(tr("Capacitance"), tr("Inductance"))});
  form.outputPWLTable->setHorizontalHeaderLabels(
      {xHeading, choose(tr("Charge"), tr("Flux Linkages"))});
  form.limitGroupBox->setTitle(choose(tr("Limit Voltage output?"), tr("Limit Current output?")));
  form.limitUnit->setText(choose(tr("V"), tr("A")));
  form.limitValueSpinner->setAccessibleDescription(form.limitUnit->text());
  form.plotButton->setToolTip(
      choose(tr("Select to plot the charge vs. voltage behavior of this capacitor."),
             tr("Select to plot the flux-linkages vs. current behavior of this inductor.")));
  form.FluxLinkageNote->setVisible(isInductor());
  form.leftImage->setPixmap(picture(isInductor() ? "ind_ind_vs_a" : "cap_cap_vs_v"));
  form.rightImage->setPixmap(picture(isInductor() ? "ind_flux_vs_a" : "cap_q_vs_v"));
}

void ConvertPassiveToBRENNIXDialog::loadInput() {
  form.inputTable->setPoints(pointsOfText(inputText));
  form.inputTable->startSteps();
}

void ConvertPassiveToBRENNIXDialog::loadOutput() {
  if (outputText.isEmpty())
    return;
  const PwlPoints points = pointsOfText(outputText);
  showComputed(form.outputPWLTable, points);
  form.numSegSpinner->setValue(points.size() - 1);
  numSegments = form.numSegSpinner->value();
}

void ConvertPassiveToBRENNIXDialog::connectControls() {
  using Self = ConvertPassiveToBRENNIXDialog;
  prepareDialog(scriptArgs, UserString); // wires OK, Cancel and Help
  connect(form.convertButton, &QToolButton::clicked, this, &Self::convert);
  connect(form.revertButton, &QToolButton::clicked, this, &Self::revert);
  connect(form.numSegSpinner, &Spinner::changed, this, &Self::num_segs_changed);
  connect(form.digitizeButton, &QPushButton::clicked, this, &Self::DigitizeData);
  connect(form.pasteButton, &QPushButton::clicked, this, &Self::pasteButton_clicked);
  connect(form.plotButton, &QPushButton::clicked, this, &Self::plot_waveforms);
  connect(form.limitGroupBox, &QGroupBox::clicked, this, &Self::output_limit_changed);
  for (const PointTable* table : {form.inputTable, form.outputPWLTable})
    connect(table, &PointTable::stepMade, this, &Self::sayWhatIsStale);
  connect(form.limitValueSpinner, &Spinner::changed, this, &Self::output_limit_changed);
}

void ConvertPassiveToBRENNIXDialog::helpClicked() {
  sp_RunHelpContext(helpContextNumber);
}

void ConvertPassiveToBRENNIXDialog::formAccepted() {
  inputText = textOfPoints(form.inputTable->rows().points());
  outputText = textOfPoints(form.outputPWLTable->rows().points());
  limitFlag = form.limitGroupBox->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
  limitValue = QString::number(form.limitValueSpinner->value(), 'g', 6);
  accept();
}

// ---- conversion ---------------------------------------------------------------------------------

bool ConvertPassiveToBRENNIXDialog::isConvertible() const {
  const PwlPoints points = form.inputTable->rows().points();
  return points.size() > 1 && !isStepWise(points);
}

HostAnswer<PwlPoints> ConvertPassiveToBRENNIXDialog::resampleInput() const {
  const Curve input = curveOfEngText(form.inputTable->rows().points());
  const auto [samples, fault] = host.resampled(input);
  if (!fault.isEmpty())
    return {{}, fault};
  const double limit =
      form.limitGroupBox->isChecked() ? form.limitValueSpinner->value() : samples.x.back();
  const Curve kept = upTo(limit, samples);
  PwlPoints points = exactTextOfCurve(kept);
  const bool endsAtLimit = kept.size() > 0 && kept.x.back() == limit;
  if (samples.x.back() <= limit || endsAtLimit)
    return {points, {}};
  // The curve ends at the limit itself, not at the last sample before it. Where it has no value
  // there, the row stays blank.
  const HostAnswer<std::optional<double>> y = host.valueAt(limit, input);
  points.append(y.value ? PwlPoint{QString::number(limit, 'g', 6), exactText(*y.value)}
                        : PwlPoint());
  return {points, y.fault};
}

HostAnswer<PwlPoints> ConvertPassiveToBRENNIXDialog::integrate(const PwlPoints& samples) const {
  const HostAnswer<Curve> integral = host.integral(curveOfExactText(samples));
  return {exactTextOfCurve(integral.value), integral.fault};
}

HostAnswer<PwlPoints> ConvertPassiveToBRENNIXDialog::fitCurve(const PwlPoints& integral) const {
  const HostAnswer<Curve> fit = host.fitted(curveOfExactText(integral), numSegments, kind);
  return {engTextOfCurve(fit.value), fit.fault};
}

bool ConvertPassiveToBRENNIXDialog::refuse(const QString& fault) {
  warn(isVisible() ? this : parentWidget(), tr("Cannot convert"), fault);
  return false;
}

bool ConvertPassiveToBRENNIXDialog::recompute() {
  // All steps are made before the first table is written: one that fails changes none.
  const HostAnswer<PwlPoints> samples = resampleInput();
  if (!samples)
    return refuse(samples.fault);
  const HostAnswer<PwlPoints> integral = integrate(samples.value);
  if (!integral)
    return refuse(integral.fault);
  const HostAnswer<PwlPoints> output = fitCurve(integral.value);
  if (!output)
    return refuse(output.fault);
  showComputed(form.inputInterpDataTable, samples.value);
  showComputed(form.integralDataTable, integral.value);
  showComputed(form.outputPWLTable, output.value);
  setConverted();
  return true;
}

void ConvertPassiveToBRENNIXDialog::convert() {
  // By its shortcut the button takes no focus; taking it finishes a cell that is still open.
  form.convertButton->setFocus(Qt::OtherFocusReason);
  const PwlPoints points = form.inputTable->rows().points();
  if (points.size() < 2) {
    QMessageBox::warning(this, tr("Not enough points"),
                         tr("The convert function requires at least 2 input points."));
  } else if (isStepWise(points)) {
    QMessageBox::warning(this, tr("Cannot convert step-wise data"),
                         tr("Converting step-wise data is not allowed."));
  } else if (recompute()) {
    setEnabled({form.okButton, form.plotButton}, true);
  }
}

void ConvertPassiveToBRENNIXDialog::setConverted() {
  converted = {form.inputTable->rows().points(), form.outputPWLTable->rows().points()};
  sayWhatIsStale();
}

void ConvertPassiveToBRENNIXDialog::sayWhatIsStale() {
  const PwlPoints output = form.outputPWLTable->rows().points();
  const bool isStale = !output.isEmpty() && (output != converted.output ||
                                             form.inputTable->rows().points() != converted.input);
  form.outputNote->setText(isStale ? tr("These points are not of the present input.") : QString());
}

void ConvertPassiveToBRENNIXDialog::num_segs_changed() {
  numSegments = form.numSegSpinner->number().value_or(1);
  // The table shows at once how many points there will be, also where they cannot be computed.
  form.outputPWLTable->setRowCount(static_cast<int>(numSegments + 1));
  form.outputPWLTable->startSteps();
  const PwlPoints integral = form.integralDataTable->rows().points();
  if (integral.size() < 2 || isStepWise(form.inputTable->rows().points()))
    return;
  const HostAnswer<PwlPoints> output = fitCurve(integral);
  if (output)
    showComputed(form.outputPWLTable, output.value);
  else
    refuse(output.fault);
}

void ConvertPassiveToBRENNIXDialog::output_limit_changed() {
  if (form.inputInterpDataTable->rows().completeRows() > 1 && isConvertible())
    recompute();
}

void ConvertPassiveToBRENNIXDialog::revert() {
  form.revertButton->setFocus(Qt::OtherFocusReason);
  const PwlPoints output = form.outputPWLTable->rows().points();
  if (output.size() < 2) {
    QMessageBox::warning(this, tr("Not enough points"),
                         tr("The revert function requires at least 2 output points."));
    return;
  }
  form.inputTable->step(tr("Conversion"), [&] {
    form.inputTable->setPoints(engTextOfCurve(differentiate(curveOfEngText(output))), 0);
  });
  setConverted();
  setEnabled({form.okButton, form.plotButton}, true);
  showComputed(form.integralDataTable, {PwlPoint()});
  showComputed(form.inputInterpDataTable, {PwlPoint()});
}

// ---- input --------------------------------------------------------------------------------------

void ConvertPassiveToBRENNIXDialog::pasteButton_clicked() {
  form.inputTable->commitOpenCell();
  YString clipboard;
  if (!sp_PasteTextFromClipboard(&clipboard) || clipboard.isEmpty())
    return;
  int leftOut = 0;
  const PwlPoints pasted = pointsInText(toQs(clipboard), &leftOut);
  if (pasted.size() > maximumPoints) {
    QMessageBox::warning(this, tr("PWL Paste Error"),
                         tr("There are %1 points in the pasted definition.\n").arg(pasted.size()) +
                             tooManyText().arg(maximumPoints));
    return;
  }
  form.inputTable->step(tr("Paste"),
                        [&] { form.inputTable->overwritePoints(withoutSuffixes(pasted)); });
  form.inputTable->enterFirstCell();
  const SuffixLoss loss = lossWithoutSuffixes(pasted);
  form.inputTable->say(PointNotes::pointsRead(pasted.size(), leftOut) + QLatin1Char(' ') +
                       PointNotes::numbersTaken(loss.zeros, loss.cut));
}

void ConvertPassiveToBRENNIXDialog::DigitizeData() {
  GraphImageCaptureRecord picture;
  GraphImageCaptureRecord settled;
  KvVector<double> x;
  KvVector<double> y;
  picture.picture = toYs(QFileDialog::getOpenFileName(
      this, tr("Open Image"), QDir::currentPath(), tr("Images (*.png *.jpg *.jpeg *.bmp *.gif)")));
  if (picture.picture.isEmpty())
    return;
  if (graphImageCapture(picture, &settled, &x, &y)) {
    y.resize(x.size());
    form.inputTable->step(tr("Digitise"), [&] {
      form.inputTable->setPoints(engTextOfCurve({x.values(), y.values()}), 0);
    });
  }
}

// ---- plot ---------------------------------------------------------------------------------------

void ConvertPassiveToBRENNIXDialog::plot_waveforms() {
  form.inputTable->commitOpenCell();
  const EnergyPlot plot = energyPlot(curveOfEngText(form.inputTable->rows().points()),
                                     curveOfExactText(form.integralDataTable->rows().points()),
                                     curveOfEngText(form.outputPWLTable->rows().points()));
  PassiveToBRENNIXPlotter(this, isInductor(), plot).exec();
}
