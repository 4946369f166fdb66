#include "Analog/DefineIdealTxDialog.h"

#include "Core/Frame/Integers.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QScopedValueRollback>

static const ScriptFunction declaration("DefineIdealTxDialog", 3, "RRRS", RealVectorResult,
                                        runDialogFunction<DefineIdealTxDialog, UserReal>);

namespace {

enum Argument { Device, PrimaryTurns, SecondaryTurns, Kind };
/// Of the device, and of the result, where the turns follow.
enum Element {
  PerTurnSquared,
  PrimaryCoupling,
  SecondaryCoupling,
  PrimarySecondaryCoupling,
  Primaries,
  Secondaries,
  ElementCount
};

} // namespace

DefineIdealTxDialog::DefineIdealTxDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
  setShown({form.defineCoreGroupBox, form.couplingFactorLabel, form.couplingFactorEdit,
            form.inductanceStaticLabel, form.inductanceLabel, form.satCurrentStaticLabel,
            form.saturationCurrentLabel},
           false);
  form.numPrimariesEdit->setMax(Windings::most);
  form.numSecondariesEdit->setMax(Windings::most);
  resize(0, 0);

  using Self = DefineIdealTxDialog;
  for (const Spinner* count : {form.numPrimariesEdit, form.numSecondariesEdit})
    connect(count, &Spinner::changed, this, &Self::numPrimariesEdit_changed);
  for (const QRadioButton* type : {form.rbCoreType, form.rbUserDims})
    connect(type, &QRadioButton::clicked, this, &Self::rbCoreType_clicked);
  for (const QRadioButton* unit : {form.rbMm, form.rbCm, form.rbInch, form.rbMetres})
    connect(unit, &QRadioButton::clicked, this, &Self::rbMm_clicked);
  connect(form.coreSizeCombo, &QComboBox::textActivated, this, &Self::coreSizeCombo_activated);
  connect(form.coreMaterialCombo, &QComboBox::textActivated, this,
          &Self::coreMaterialCombo_activated);
  connect(form.windingsTable, &WindingsTable::edited, this, &Self::numTurnsChanged);
}

int DefineIdealTxDialog::helpContextId() {
  return sp_GetHelpContextId(nonInductive ? "DC_Transformer" : "Ideal_Transformers");
}

void DefineIdealTxDialog::initialiseDialog() {
  const QScopedValueRollback<bool> guard(loading, true);
  const auto device = numbers<ElementCount>(Device, {1e-5, 0.99, 0.99, 0.99, 1, 1});
  loadTurns();
  showKind(toQs(getString(Kind)));
  showCounts(device[Primaries], device[Secondaries]);
  form.primaryCouplingEdit->setValue(device[PrimaryCoupling]);
  form.secondaryCouplingEdit->setValue(device[SecondaryCoupling]);
  form.primarySecondaryCouplingEdit->setValue(device[PrimarySecondaryCoupling]);
  primaryInductance = windingInductance(device[PerTurnSquared], windings.firstTurns());
  buildTable();
  form.numPrimariesEdit->setFocus(Qt::TabFocusReason);
}

void DefineIdealTxDialog::loadTurns() {
  const double* turns = nullptr;
  unsigned count = 0;
  if (getRealVector(PrimaryTurns, &turns, &count))
    windings.setPrimaryTurns(turns, count);
  if (getRealVector(SecondaryTurns, &turns, &count))
    windings.setSecondaryTurns(turns, count);
}

void DefineIdealTxDialog::showKind(const QString& kind) {
  nonInductive = equals(kind, QStringLiteral("nonind"));
  form.inductanceAndCouplingGroupBox->setVisible(!nonInductive);
  form.numSecondariesEdit->setMin(nonInductive ? 1 : 0);
  if (!nonInductive)
    return;
  setWindowTitle(tr("Define Ideal DC Transfromer"));
  resize(0, 0); // less is shown
}

void DefineIdealTxDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  readTable();
  const std::vector<double> turns = windings.allTurns();
  double* result = makeRealResult(ElementCount + int(turns.size()));
  if (!result)
    return;
  result[PerTurnSquared] = inductancePerTurnSquared();
  result[PrimaryCoupling] = form.primaryCouplingEdit->value();
  result[SecondaryCoupling] = form.secondaryCouplingEdit->value();
  result[PrimarySecondaryCoupling] = form.primarySecondaryCouplingEdit->value();
  result[Primaries] = windings.primaries();
  result[Secondaries] = windings.secondaries();
  std::copy(turns.cbegin(), turns.cend(), result + ElementCount);
}

double DefineIdealTxDialog::inductancePerTurnSquared() {
  return ::inductancePerTurnSquared(primaryInductance, windings.firstTurns());
}

bool DefineIdealTxDialog::firstInductanceEditable() {
  return true;
}

void DefineIdealTxDialog::numPrimariesEdit_changed(const QString&) {
  if (loading)
    return;
  readTable();
  takeCounts();
  buildTable();
}

void DefineIdealTxDialog::rbCoreType_clicked() {}

void DefineIdealTxDialog::coreSizeCombo_activated(const QString&) {}

void DefineIdealTxDialog::rbMm_clicked() {}

void DefineIdealTxDialog::coreMaterialCombo_activated(const QString&) {}

void DefineIdealTxDialog::numTurnsChanged() {
  readTable();
  form.windingsTable->showInductances(windings, inductancePerTurnSquared());
}

void DefineIdealTxDialog::showEvent(QShowEvent* event) {
  form.windingsTable->resizeRowsToContents();
  KelvarinDialog::showEvent(event);
}

void DefineIdealTxDialog::showCounts(double primaries, double secondaries) {
  form.numPrimariesEdit->setValue(primaries);
  form.numSecondariesEdit->setValue(secondaries);
  takeCounts();
}

void DefineIdealTxDialog::takeCounts() {
  const auto count = [](const Spinner* edit, int otherwise) {
    const auto number = edit->number();
    return number ? truncatedToInt(*number) : otherwise;
  };
  windings.setCounts(count(form.numPrimariesEdit, windings.primaries()),
                     count(form.numSecondariesEdit, windings.secondaries()));
  form.couplingFactorEdit->setEnabled(windings.count() > 1);
}

void DefineIdealTxDialog::buildTable() {
  using Inductances = WindingsTable::Inductances;
  WindingsTable* const table = form.windingsTable;
  if (!tableReady)
    table->setInductances(nonInductive                ? Inductances::None
                          : firstInductanceEditable() ? Inductances::FirstEditable
                                                      : Inductances::Shown);
  table->showWindings(windings, form.ueEdit);
  if (Spinner* edit = table->firstInductanceEdit(); edit && !tableReady)
    edit->setValue(primaryInductance);
  tableReady = true;
  numTurnsChanged();
}

void DefineIdealTxDialog::readTable() {
  if (!tableReady)
    return;
  if (!firstInductanceEditable())
    primaryInductance = windingInductance(inductancePerTurnSquared(), windings.firstTurns());
  else if (const Spinner* edit = form.windingsTable->firstInductanceEdit())
    primaryInductance = edit->number().value_or(0);
  form.windingsTable->readTurns(&windings);
}
