#include "Analog/DefineSaturableTxDialog.h"

#include "Core/Frame/Integers.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QScopedValueRollback>

#include <cmath>

static const ScriptFunction declaration("DefineSaturableTxDialog", 4, "SSRR", RealVectorResult,
                                        runDialogFunction<DefineSaturableTxDialog, UserReal>);

namespace {

enum Argument { Materials, Cores, Ratios, Device };
/// Of the device, and of the result, where the ratios follow.
enum Element {
  ReferenceTurns,
  MaterialIndex,
  CoreIndex,
  Primaries,
  Secondaries,
  Area,
  Length,
  Permeability,
  CouplingFactor,
  ElementCount
};

} // namespace

DefineSaturableTxDialog::DefineSaturableTxDialog()
    : DefineIdealTxDialog("DefineSaturableTxDialog"), core(form, &unit) {
  setShown({form.defineCoreGroupBox, form.couplingFactorLabel, form.couplingFactorEdit,
            form.inductanceStaticLabel, form.inductanceLabel, form.satCurrentStaticLabel,
            form.saturationCurrentLabel},
           true);
  form.inductanceAndCouplingGroupBox->hide();
  setSizeGripEnabled(true);
  setWindowTitle(tr("Define Saturable Transformer/Inductor"));
  resize(0, 0);
  for (const Spinner* edit : {form.areaEdit, form.lengthEdit, form.ueEdit}) {
    connect(edit, &Spinner::textChanged, this, &DefineSaturableTxDialog::numTurnsChanged);
    connect(edit, &Spinner::changed, this, &DefineSaturableTxDialog::numTurnsChanged);
  }
}

int DefineSaturableTxDialog::helpContextId() {
  return sp_GetHelpContextId("Placing_and_Specifying_Components");
}

void DefineSaturableTxDialog::initialiseDialog() {
  const QScopedValueRollback<bool> guard(loading, true);
  const auto device = numbers<ElementCount>(Device, {100, 0, 0, 1, 1, 0.0001, 0.01, 1000, 1});
  const double* ratios = nullptr;
  unsigned count = 0;
  if (getRealVector(Ratios, &ratios, &count))
    windings.setRatios(ratios, count, device[ReferenceTurns], truncatedToInt(device[Primaries]),
                       truncatedToInt(device[Secondaries]));
  showCounts(std::trunc(device[Primaries]), std::trunc(device[Secondaries]));

  materialNames = firstFields(texts(Materials));
  core.load(texts(Cores), materialNames, truncatedToInt(device[CoreIndex]),
            {device[Area], device[Length], device[Permeability],
             materialNames.value(truncatedToInt(device[MaterialIndex]))});
  form.couplingFactorEdit->setValue(device[CouplingFactor]);
  buildTable();
  form.numPrimariesEdit->setFocus(Qt::TabFocusReason);
}

void DefineSaturableTxDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  readTable();
  const std::vector<double> ratios = windings.ratios();
  double* result = makeRealResult(ElementCount + int(ratios.size()));
  if (!result)
    return;
  const MagneticCore present = core.present();
  result[ReferenceTurns] = windings.firstTurns();
  result[MaterialIndex] = std::max(0, indexOfName(materialNames, present.material));
  result[CoreIndex] = core.core();
  result[Primaries] = windings.primaries();
  result[Secondaries] = windings.secondaries();
  result[Area] = present.area;
  result[Length] = present.length;
  result[Permeability] = present.permeability;
  result[CouplingFactor] = form.couplingFactorEdit->value();
  std::copy(ratios.cbegin(), ratios.cend(), result + ElementCount);
}

double DefineSaturableTxDialog::inductancePerTurnSquared() {
  return core.present().inductancePerTurnSquared();
}

bool DefineSaturableTxDialog::firstInductanceEditable() {
  return false;
}

void DefineSaturableTxDialog::rbCoreType_clicked() {
  core.typeChosen();
  showSaturationCurrent();
}

void DefineSaturableTxDialog::coreSizeCombo_activated(const QString&) {
  core.coreChosen();
  showSaturationCurrent(); // another material may come with the same dimensions
}

void DefineSaturableTxDialog::rbMm_clicked() {
  core.unitChosen();
}

void DefineSaturableTxDialog::coreMaterialCombo_activated(const QString&) {
  showSaturationCurrent();
}

void DefineSaturableTxDialog::numTurnsChanged() {
  DefineIdealTxDialog::numTurnsChanged();
  showInductance();
  showSaturationCurrent();
}

void DefineSaturableTxDialog::showInductance() {
  const MagneticCore present = core.present();
  const double inductance =
      windingInductance(present.inductancePerTurnSquared(), windings.firstTurns());
  form.inductanceLabel->setText(present.length > 0 ? quantityText(inductance, "H") : QString());
}

void DefineSaturableTxDialog::showSaturationCurrent() {
  const MagneticCore present = core.present();
  const auto line = unsigned(form.coreMaterialCombo->currentIndex());
  if (!present.currentAt(0, windings.firstTurns()))
    form.saturationCurrentLabel->clear();
  else if (const auto density = saturationFluxDensity(texts(Materials).raw(line)))
    form.saturationCurrentLabel->setText(
        quantityText(*present.currentAt(*density, windings.firstTurns()), "A"));
}
