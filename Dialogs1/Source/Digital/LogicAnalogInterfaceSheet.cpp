#include "Digital/LogicAnalogInterfaceSheet.h"

#include "Frame/WidgetStates.h"
#include "HostSupport/Arguments.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ComboNames.h"

#include <algorithm>

namespace {

void showInterfaces(QComboBox* combo, const LogicInterfaces& interfaces, const QVector<int>& lines,
                    int defaultLine) {
  QStringList rows;
  for (int line : lines)
    rows.append(rowText(interfaces.description(line)));
  showNames(combo, rows);
  // Without a default the first stands, as in any list.
  combo->setCurrentIndex(std::max(0, lines.indexOf(defaultLine)));
}

} // namespace

LogicAnalogInterfaceSheet::LogicAnalogInterfaceSheet() {
  outElementIndex = AnalogInterface::firstInResult;
}

LogicAnalogInterfaceSheet::LogicAnalogInterfaceSheet(QWidget* parent, int argument, Sides sides)
    : LogicAnalogInterfaceSheet() {
  setParent(parent);
  argIndex = argument;
  form.setupUi(this);
  hasForm = true;
  setShown(
      {form.outputLabel, form.outputCombo, form.outputResistanceLabel, form.outputResistanceEdit},
      sides != Sides::Inputs);
  setShown(
      {form.inputLabel, form.inputCombo, form.inputCapacitanceLabel, form.inputCapacitanceEdit},
      sides != Sides::Outputs);
}

bool LogicAnalogInterfaceSheet::initialiseWidget(UserFunctionInterface* call) {
  if (!hasForm)
    return false;
  const double* numbers = nullptr;
  unsigned numberCount = 0;
  sp_GetRealIfVector(call, argIndex, &numbers, &numberCount);
  const AnalogInterface values = analogInterface(numbers, numberCount);
  interfaces = LogicInterfaces(Texts(call, argIndex + 1), values.input, values.output);

  explainResistance();
  showTechnologies(values);
  form.supplyVoltageEdit->setValue(values.supply);
  form.inputCapacitanceEdit->setValue(values.capacitance);
  form.outputResistanceEdit->setValue(values.resistance);
  return true;
}

bool LogicAnalogInterfaceSheet::readWidget(UserReturnData* result,
                                           const UserFunctionInterface* call) {
  if (!hasForm)
    return false;
  using Interface = AnalogInterface;
  const auto shown = interfaces.technology(form.technologyCombo->currentIndex());
  const int input = shown.inputs.value(form.inputCombo->currentIndex());
  const int output = shown.outputs.value(form.outputCombo->currentIndex());
  const std::pair<Interface::Element, const Spinner*> edits[] = {
      {Interface::Supply, form.supplyVoltageEdit},
      {Interface::Capacitance, form.inputCapacitanceEdit},
      {Interface::Resistance, form.outputResistanceEdit}};
  if (result->type == UserReal) {
    auto* reals = static_cast<double*>(result->data);
    reals[Interface::Input] = input;
    reals[Interface::Output] = output;
    for (const auto& [element, edit] : edits)
      reals[element] = edit->value();
  } else {
    auto* texts = static_cast<char**>(result->data);
    texts[Interface::Input] = call->hostString(YString(input));
    texts[Interface::Output] = call->hostString(YString(output));
    for (const auto& [element, edit] : edits)
      texts[element] = call->hostString(Tocs(edit->stringValue()));
  }
  return true;
}

QSize LogicAnalogInterfaceSheet::minimumSizeHint() const {
  QSize size = QWidget::minimumSizeHint();
  // The note wraps, and a tab widget does not ask how high its pages are at their width: be high
  // enough at the smallest.
  if (hasForm)
    size.setHeight(layout()->minimumHeightForWidth(size.width()));
  return size;
}

void LogicAnalogInterfaceSheet::explainResistance() {
  const QStringList& resistive = interfaces.resistiveTechnologies();
  Label* const label = form.outputResistanceLabel;
  label->setInfo(
      resistive.isEmpty()
          ? tr("<p>Output resistance in Ohms. Used with Input Capacitance to calculate additional "
               "digital delay caused by loading effects. The additional delay is equal to the "
               "product of the output resistance and the input capacitance.</p><p>The analog "
               "output resistance is defined by the <b>g_pullup</b> and <b>g_pulldown</b> "
               "parameters of the <b>dac_bridge</b> model associated with the technology</p>")
          : label->info().arg(boldList(resistive)));
}

void LogicAnalogInterfaceSheet::showTechnologies(const AnalogInterface& values) {
  QStringList names;
  for (const LogicInterfaces::Technology& technology : interfaces.technologies())
    names.append(rowText(technology.name));
  showNames(form.technologyCombo, names);
  // Without two interfaces the first technology only stands there: nobody has chosen it, and the
  // device keeps having none.
  const int chosen = interfaces.technologyOf(values.input);
  if (chosen >= 0 && values.output >= 0) {
    form.technologyCombo->setCurrentIndex(chosen);
    showTechnology(chosen);
  }
  connect(form.technologyCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
          &LogicAnalogInterfaceSheet::showTechnology);
  connect(form.technologyCombo, qOverload<int>(&QComboBox::activated), this,
          &LogicAnalogInterfaceSheet::technologyPicked);
}

void LogicAnalogInterfaceSheet::showTechnology(int index) {
  const LogicInterfaces::Technology technology = interfaces.technology(index);
  showInterfaces(form.inputCombo, interfaces, technology.inputs, technology.defaultInput);
  showInterfaces(form.outputCombo, interfaces, technology.outputs, technology.defaultOutput);
  form.supplyVoltageEdit->setValue(technology.supply);
}

void LogicAnalogInterfaceSheet::technologyPicked(int index) {
  // The one that already stood there is a choice as well, and it may be the only one.
  if (form.inputCombo->count() == 0 && form.outputCombo->count() == 0)
    showTechnology(index);
}
