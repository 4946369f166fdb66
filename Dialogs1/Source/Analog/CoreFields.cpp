#include "Analog/CoreFields.h"

#include "Frame/WidgetStates.h"
#include "HostSupportQt/Text.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/Spinner.h"
#include "Pieces/ComboNames.h"

#include <QLabel>
#include <QRadioButton>

#include <algorithm>
#include <cmath>

namespace {

void showRows(ComboBox* combo, QStringList names) {
  std::transform(names.cbegin(), names.cend(), names.begin(), rowText);
  showNames(combo, names);
}

void select(ComboBox* combo, const QStringList& names, const QString& name) {
  const int row = indexOfName(names, name);
  if (row >= 0)
    combo->setCurrentIndex(row);
}

} // namespace

double LengthField::metres(double number, double unit) const {
  return dimension == Area ? number * unit * unit : number * unit;
}

void LengthField::show(double value, double unit) {
  if (std::isnan(value))
    return;
  const double length = value / unit;
  const double number = dimension == Area ? length / unit : length;
  edit->setValue(number);
  shown = edit->value();
  shownIn = unit;
  given = shown == number ? value : metres(shown, unit); // the field has limits
}

double LengthField::value(double unit) const {
  const double number = edit->number().value_or(0);
  return number == shown && unit == shownIn ? given : metres(number, unit);
}

void LengthField::changeUnit(double from, double to) {
  if (from != to && !edit->isExpression())
    show(value(from), to);
}

void CoreFields::load(const Texts& coreTable, const QStringList& names, int core,
                      const MagneticCore& own) {
  table = coreTable;
  coreNames = firstFields(table);
  materialNames = names;
  (core == manual ? userDims : coreType)->setChecked(true);
  typeChosen();
  showRows(cores, coreNames);
  select(cores, coreNames, coreNames.value(core));
  showRows(materials, materialNames);
  if (core == manual)
    show(own);
  else
    applyLine(core);
}

bool CoreFields::isManual() const {
  return !coreType->isChecked();
}

int CoreFields::core() const {
  return isManual() ? manual
                    : std::max(0, indexOfName(coreNames, coreNames.value(cores->currentIndex())));
}

QString CoreFields::material() const {
  return materialNames.value(materials->currentIndex());
}

MagneticCore CoreFields::present() const {
  return {area.value(*unit), length.value(*unit), permeability->number().value_or(0), material()};
}

void CoreFields::typeChosen() {
  cores->setEnabled(!isManual());
  for (QWidget* each : byHand)
    each->setEnabled(isManual());
  coreChosen();
}

void CoreFields::coreChosen() {
  if (!isManual())
    applyLine(core());
}

void CoreFields::unitChosen() {
  const double before = std::exchange(*unit, chosenUnit());
  area.changeUnit(before, *unit);
  length.changeUnit(before, *unit);
}

double CoreFields::chosenUnit() const {
  return millimetres->isChecked()   ? 0.001
         : centimetres->isChecked() ? 0.01
         : inches->isChecked()      ? 0.0254
                                    : 1;
}

void CoreFields::applyLine(int line) {
  if (const auto core = readCore(table.raw(unsigned(line))))
    show(*core);
}

void CoreFields::show(const MagneticCore& core) {
  *unit = chosenUnit();
  select(materials, materialNames, core.material);
  area.show(core.area, *unit);
  length.show(core.length, *unit);
  permeability->setValue(core.permeability);
}
