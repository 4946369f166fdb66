#include "Pwl/PWLDialog.h"

#include "Core/Pieces/ObjectNames.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pwl/ConvertPassiveToBRENNIXDialog.h"
#include "Pwl/PointNotes.h"

#include <QMessageBox>

#include <algorithm>

using InitialCondition = PwlOptions::InitialCondition;

static const ScriptFunction declaration("PWLDialog", 1, "SSRS", RealVectorResult,
                                        runDialogFunction<PWLDialog, UserReal>);

namespace {

enum Argument { Points, Options, Numbers, ConverterMemory };
/// The numbers of the call. An initial condition comes back in the same two places.
enum Number : unsigned { UsesCondition, Condition, SourceIdle, Cycles };

QString tooManyText() {
  return PWLDialog::tr("This dialog box can handle a maximum of %1 PWL points. For Kelvarin\n"
                       "simulations you can use a PWLFILE source for larger definitions ");
}

bool isZero(const QString& text) {
  bool isNumber = false;
  return text.toDouble(&isNumber) == 0 && isNumber;
}

PointRow zero(PointRow::Kind kind) {
  return {kind, QStringLiteral("0"), QStringLiteral("0"), QString()};
}

/// Puts fields behind what the result holds.
void append(TextVector* result, const Fields& fields) {
  Elements elements(result, result->count());
  fields.store(&elements);
}

} // namespace

PWLDialog::PWLDialog() : KelvarinDialog(nullptr, "PWLDialog", true, {}) {
  form.setupUi(this);
  // Readers would never learn what stands in a box that is off while its fields are being made.
  form.groupBoxInitialCondition->setChecked(false);
  initialCondition = {{form.groupBoxInitialCondition, UsesCondition},
                      {form.initialConditionEdit, Condition}};
  form.pwlGrid->setLimits({options.mostRows, options.leastPoints, tooManyText(),
                           tr("Minimum segments"), tr("You must have at least %1 segments")});
  form.pwlGrid->addRowActions(this);
  connect(form.pwlGrid, &PointTable::rowsChanged, this, &PWLDialog::limitInitialSegment);
  connect(form.pwlGrid, &PointTable::noted, form.pointNote, &QLabel::setText);
  connect(form.pwlGrid, &PointTable::stepRestored, this, &PWLDialog::showMode);
  connect(form.pasteButton, &QPushButton::clicked, this, &PWLDialog::pasteButton_clicked);
  connect(form.rbFixedNumCycles, &QRadioButton::toggled, this, &PWLDialog::repeatButtonClicked);

  FileVersion version;
  if (sp_GetFileVersion(sp_GetExeFileName(), &version) && version.major == 8 && version.minor == 10)
    form.repeatGroupBox->setTitle(form.repeatGroupBox->title() + QStringLiteral(" [V8.1+]"));
}

void PWLDialog::initialiseDialog() {
  options = readPwlOptions(texts(Options));
  showOptions();
  loadPoints();
  loadNumbers();
  offerConverter();
  setMode(symmetric, converterMemory); // what the first step goes back to
  form.pwlGrid->setFocus(Qt::TabFocusReason);
  form.pwlGrid->enterFirstCell();
  form.pwlGrid->startSteps();
  form.pwlGrid->openWindowFully();
}

void PWLDialog::showOptions() {
  if (options.title)
    setWindowTitle(shownCaption(*options.title));
  const QString xHeading = shownHeading(options.xHeading.value_or(tr("Time")));
  const QString yHeading = shownHeading(options.yHeading.value_or(tr("Value")));
  form.pwlGrid->setHorizontalHeaderLabels({xHeading, yHeading});
  form.pwlGrid->setLimits(options.leastPoints, options.mostRows);
  form.helpButton->setVisible(options.helpContext >= 0);
  form.radiogroupSymmetric->setVisible(options.offersSymmetric);
  form.repeatGroupBox->setVisible(options.offersRepeat);
  showInitialCondition();

  // Boxes that call for other rows keep a geometry of their own.
  setObjectName(toQs(hashedObjectName(options.isMultiLevel ? "MLPWLDialog" : "PWLDialog",
                                      toYs(xHeading + yHeading + options.helpContextText))));
}

void PWLDialog::showInitialCondition() {
  form.groupBoxInitialCondition->setVisible(options.initialCondition != InitialCondition::None);
  if (options.initialCondition != InitialCondition::Segment)
    return;
  form.groupBoxInitialCondition->setCheckable(false);
  form.groupBoxInitialCondition->setTitle(tr("Initial segment"));
  form.initialConditionLabel->setText(tr("&Initial segment"));
  form.initialConditionEdit->setEngMode(false);
  form.initialConditionEdit->setStep125(false);
  form.initialConditionEdit->setWholeNumber(true);
  form.initialConditionEdit->setMin(1);
}

void PWLDialog::loadPoints() {
  const Texts coordinates = texts(Points);
  for (unsigned i = 0; i + 1 < coordinates.count(); i += 2)
    points.append({coordinates.text(i), coordinates.text(i + 1)});

  if (options.offersSymmetric) {
    symmetric = isSymmetric(points);
    form.radiobuttonSymmetric->setChecked(symmetric);
    connect(form.radiogroupSymmetric, &RadioGroup::clicked, this,
            &PWLDialog::radiogroupSymmetric_clicked);
  }
  if (points.size() <= form.pwlGrid->mostRows()) {
    populateTable();
    return;
  }
  QMessageBox::warning(this, tr("Too many points"),
                       tr("There are %1 points in this PWL definition.\n").arg(points.size()) +
                           tooManyText().arg(form.pwlGrid->mostRows()));
}

void PWLDialog::populateTable() {
  form.pwlGrid->setPoints(symmetric ? firstQuadrant(points) : points);
  if (symmetric)
    putOrigin();
}

void PWLDialog::putOrigin() {
  form.pwlGrid->insertRow(0);
  form.pwlGrid->setRow(0, zero(PointRow::Kind::Origin));
}

void PWLDialog::loadNumbers() {
  const double* numbers = nullptr;
  unsigned count = 0;
  getRealVector(Numbers, &numbers, &count);
  if (options.offersRepeat) {
    const double cycles = count > Cycles ? numbers[Cycles] : 1;
    form.rbRepeatForever->setChecked(cycles == 0);
    form.repetionPeriodEdit->setValue(cycles);
  } else {
    const bool hasInitialCondition = count > Condition;
    form.groupBoxInitialCondition->setChecked(false);
    if (hasInitialCondition)
      initialCondition.load(Reals(numbers, count));
    hasSourceIdle = count > SourceIdle;
    form.cbSourceIdle->setVisible(hasSourceIdle);
    form.cbSourceIdle->setChecked(!hasSourceIdle || numbers[SourceIdle] != 0);
  }
  repeatButtonClicked();
  limitInitialSegment();
}

void PWLDialog::offerConverter() {
  form.componentUnitEntryButton->setVisible(options.converter != EnergyStorage::None);
  form.componentUnitEntryButton->setText(options.converter == EnergyStorage::Inductor
                                             ? tr("Enter Inductance...")
                                             : tr("Enter Capacitance..."));
  connect(form.componentUnitEntryButton, &QPushButton::clicked, this,
          &PWLDialog::open_converter_tool);
  YString memory;
  if (getString(ConverterMemory, &memory))
    converterMemory = readConversionMemory(toQs(memory));
}

void PWLDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  PwlPoints written = normalisedPoints(symmetric ? 1 : 0);
  if (symmetric)
    written = withMirrorImage(written);

  TextVector result;
  for (const PwlPoint& point : written) {
    result.append(point.x);
    result.append(point.y);
  }
  if (options.offersRepeat)
    result.append(form.rbRepeatForever->isChecked() ? QStringLiteral("0")
                                                    : form.repetionPeriodEdit->stringValue());
  if (options.initialCondition != InitialCondition::None)
    append(&result, initialCondition);
  if (hasSourceIdle)
    result.append(flagWord(form.cbSourceIdle->isChecked()));
  if (options.converter != EnergyStorage::None)
    result.append(writeConversionMemory(converterMemory));
  setTextsResult(result);
}

void PWLDialog::accept() {
  finishField();
  const PwlPoints typed = normalisedPoints(0);
  for (int row = 0; row < typed.size(); ++row) {
    const bool isValidX = validate(typed.at(row).x);
    if (isValidX && validate(typed.at(row).y))
      continue;
    QMessageBox::warning(this, tr("Invalid Entries"),
                         tr("<html>One or more entries are invalid. Cell entries must either "
                            "be a number or an expression enclosed with '{' and '}'</html>"));
    form.pwlGrid->setCurrentCell(row, isValidX ? 1 : 0);
    form.pwlGrid->setFocus(Qt::OtherFocusReason);
    return;
  }
  KelvarinDialog::accept();
}

PwlPoints PWLDialog::normalisedPoints(int first) const {
  PwlPoints found = form.pwlGrid->rows().points(first);
  for (PwlPoint& point : found)
    point = {normalisedCell(point.x), normalisedCell(point.y)};
  return found;
}

int PWLDialog::countPoints() {
  return form.pwlGrid->rows().completeRows(symmetric ? 1 : 0);
}

void PWLDialog::setMode(bool isSymmetric, const ConversionMemory& memory) {
  symmetric = isSymmetric;
  converterMemory = memory;
  const QString written = writeConversionMemory(memory);
  if (!memories.contains(written))
    memories.append(written);
  form.pwlGrid->setMode(2 * memories.indexOf(written) + int(symmetric));
}

void PWLDialog::showMode(int mode) {
  symmetric = mode % 2 != 0;
  converterMemory = readConversionMemory(memories.value(mode / 2));
  (symmetric ? form.radiobuttonSymmetric : form.radiobuttonAsymmetric)->setChecked(true);
}

void PWLDialog::radiogroupSymmetric_clicked(int selectedId) {
  form.pwlGrid->commitOpenCell();
  form.pwlGrid->step(tr("Entry Mode"), [this, selectedId] {
    setMode(selectedId != 0, converterMemory);
    const PointRow first = form.pwlGrid->rows().at(0);
    const bool hasOrigin = first.kind == PointRow::Kind::Origin;
    if (symmetric == hasOrigin)
      return;
    if (symmetric) {
      if (isZero(first.x) && isZero(first.y))
        form.pwlGrid->removeRow(0);
      putOrigin();
    } else {
      form.pwlGrid->setRow(0, zero(PointRow::Kind::Point));
    }
  });
}

void PWLDialog::pasteButton_clicked() {
  form.pwlGrid->commitOpenCell();
  YString clipboard;
  if (!sp_PasteTextFromClipboard(&clipboard) || clipboard.isEmpty())
    return;
  int leftOut = 0;
  const PwlPoints pasted = pointsInText(toQs(clipboard), &leftOut);
  if (pasted.size() > form.pwlGrid->mostRows()) {
    QMessageBox::warning(this, tr("PWL Paste Error"),
                         tr("There are %1 points in the pasted definition.\n").arg(pasted.size()) +
                             tooManyText().arg(form.pwlGrid->mostRows()));
    return;
  }
  // What is pasted is a whole curve, whatever the buttons go on to show.
  form.pwlGrid->step(tr("Paste"), [this, &pasted] {
    radiogroupSymmetric_clicked(0);
    form.pwlGrid->overwritePoints(pasted);
  });
  form.pwlGrid->enterFirstCell();
  form.pwlGrid->say(PointNotes::pointsRead(pasted.size(), leftOut));
  limitInitialSegment();
}

void PWLDialog::repeatButtonClicked() {
  form.repetionPeriodEdit->setEnabled(form.rbFixedNumCycles->isChecked());
}

bool PWLDialog::validate(const QString& text) {
  return isValidCell(text, !symmetric);
}

void PWLDialog::limitInitialSegment() {
  if (options.initialCondition == InitialCondition::Segment)
    form.initialConditionEdit->setMax(form.pwlGrid->rowCount());
}

void PWLDialog::open_converter_tool() {
  form.pwlGrid->commitOpenCell();
  // A curve that was typed by hand reaches the tool as what comes out of it.
  if (converterMemory.input.isEmpty() && converterMemory.output.isEmpty())
    converterMemory.output = textOfPoints(normalisedPoints(0));
  ConvertPassiveToBRENNIXDialog tool(this, "ConvertDialog", scriptArgs, options.converter,
                                     converterMemory);
  if (tool.exec() != Accepted)
    return;
  // Also of a symmetric curve the points land from the first row on, in place of the origin.
  form.pwlGrid->step(tr("Conversion"), [&] {
    form.pwlGrid->setPoints(pointsOfText(tool.outputText));
    setMode(symmetric, {tool.inputText, tool.outputText, tool.limitFlag, tool.limitValue});
  });
  form.pwlGrid->enterFirstCell();
  limitInitialSegment();
}
