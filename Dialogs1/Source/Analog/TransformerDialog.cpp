#include "Analog/TransformerDialog.h"

#include "Core/Analog/Windings.h"
#include "Core/Frame/Integers.h"
#include "Frame/ScriptFunction.h"

#include <algorithm>
#include <array>

static const ScriptFunction declaration("TransformerDialog", 3, "SSR", RealVectorResult,
                                        runDialogFunction<TransformerDialog, UserReal>);

namespace {

enum Argument { Materials, Cores, Device };
/// The form has the turns and the coupling factors.
enum Element {
  MaterialIndex,
  CoreIndex,
  Primaries,
  Secondaries,
  Area,
  Length,
  Permeability,
  Count
};
enum Result { Material, Core, ResultArea, ResultLength, ResultPermeability, FirstOfForm };

} // namespace

TransformerDialog::TransformerDialog() : KelvarinDialog(nullptr, "TransformerDialog", true, {}) {
  form.setupUi(this);
  auto owned = std::make_unique<TransformerDialogData>();
  core.emplace(form, &owned->unit);
  dialogData = std::move(owned);
  resize(0, 0);

  using Self = TransformerDialog;
  for (const QRadioButton* type : {form.rbCoreType, form.rbUserDims})
    connect(type, &QRadioButton::clicked, this, &Self::rbCoreType_clicked);
  for (const QRadioButton* unit : {form.rbMm, form.rbCm, form.rbInch, form.rbMetres})
    connect(unit, &QRadioButton::clicked, this, &Self::rbMm_clicked);
  connect(form.coreSizeCombo, &QComboBox::textActivated, this, &Self::coreSizeCombo_activated);
  for (const Spinner* edit : {form.primaryTurnsEdit, form.areaEdit, form.lengthEdit, form.ueEdit}) {
    connect(edit, &Spinner::textChanged, this, &Self::primaryTurnsEdit_changed);
    connect(edit, &Spinner::changed, this, &Self::primaryTurnsEdit_changed);
  }
}

void TransformerDialog::initialiseDialog() {
  const auto device = numbers<Count>(Device, {0, 0, 1, 1, 0, 0, 0});
  adaptTo(truncatedToInt(device[Primaries]), truncatedToInt(device[Secondaries]));

  const QStringList materials = texts(Materials).all();
  core->load(texts(Cores), materials, truncatedToInt(device[CoreIndex]),
             {device[Area], device[Length], device[Permeability],
              materials.value(truncatedToInt(device[MaterialIndex]))});
  KelvarinDialog::initialiseDialog();
  primaryTurnsEdit_changed({});
  dimsSavingEnabled = true;
}

void TransformerDialog::adaptTo(int primaries, int secondaries) {
  if (primaries == 1 && secondaries == 0) {
    form.winding1TurnsLabel->setText(tr("Turns"));
    setShown({form.winding2TurnsLabel, form.winding3TurnsLabel, form.secondaryTurnsEdit,
              form.winding3TurnsEdit, form.winding1CFLabel, form.winding2CFLabel,
              form.winding3CFLabel, form.couplingFactorEdit, form.couplingFactor13Edit,
              form.couplingFactor23Edit, form.divider},
             false);
  } else if (primaries == 1 && secondaries == 1) {
    form.winding2TurnsLabel->setText(tr("Secondary turns"));
    form.winding1CFLabel->setText(tr("Coupling factor"));
    setShown({form.winding3TurnsLabel, form.winding3TurnsEdit, form.winding2CFLabel,
              form.winding3CFLabel, form.couplingFactor13Edit, form.couplingFactor23Edit},
             false);
  } else if (primaries == 2 && secondaries == 1) {
    form.winding1TurnsLabel->setText(tr("Prim 1 turns"));
    form.winding2TurnsLabel->setText(tr("Prim 2 turns"));
    form.winding3TurnsLabel->setText(tr("Secondary Turns"));
    form.winding1CFLabel->setText(tr("Coupling\nfactor P1-P2"));
    form.winding2CFLabel->setText(tr("Coupling\nfactor P1-S"));
    form.winding3CFLabel->setText(tr("Coupling\nfactor P2-S"));
  }
  nameFields();
}

/// A caption of two lines is read as one.
void TransformerDialog::nameFields() {
  for (const QLabel* label : {form.winding1CFLabel, form.winding2CFLabel, form.winding3CFLabel})
    label->buddy()->setAccessibleName(label->text().remove(QLatin1Char('&')).simplified());
}

void TransformerDialog::readDialog(UserDataType type, bool accepted) {
  KelvarinDialog::readDialog(type, accepted);
  if (!accepted || resultData->count < FirstOfForm)
    return;
  auto* result = static_cast<double*>(resultData->data);
  const MagneticCore present = core->isManual() ? core->present() : MagneticCore();
  result[Material] = std::max(0, texts(Materials).all().indexOf(core->material()));
  result[Core] = core->core();
  result[ResultArea] = present.area;
  result[ResultLength] = present.length;
  result[ResultPermeability] = present.permeability;
}

void TransformerDialog::rbCoreType_clicked() {
  core->typeChosen();
}

void TransformerDialog::coreSizeCombo_activated(const QString&) {
  core->coreChosen();
}

void TransformerDialog::rbMm_clicked() {
  core->unitChosen();
}

void TransformerDialog::primaryTurnsEdit_changed(const QString&) {
  const MagneticCore present = core->present();
  const double inductance = windingInductance(present.inductancePerTurnSquared(),
                                              form.primaryTurnsEdit->number().value_or(0));
  form.inductanceLabel->setText(present.length > 0 ? quantityText(inductance, "H") : QString());
}
