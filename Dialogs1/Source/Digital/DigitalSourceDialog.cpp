#include "Digital/DigitalSourceDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupport/DigitalSource.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"
#include "Pieces/Messages.h"

#include <QMessageBox>
#include <QRegularExpressionValidator>

#include <algorithm>

static const ScriptFunction declaration("DigitalSourceDialog", 1, "SRS", StringVectorResult,
                                        runDialogFunction<DigitalSourceDialog, UserString>);

namespace {

/// Of the first argument, and of the result.
enum Element { OutputNames, Definition };

constexpr QChar nameSeparator = QLatin1Char('|');

unsigned char stateOf(const QComboBox* combo) {
  return stateChoices[std::max(combo->currentIndex(), 0)].code;
}
} // namespace

DigitalSourceDialog::DigitalSourceDialog()
    : DigitalDeviceDialog("DigitalSourceDialog", 1, Sides::Outputs), namesResult(this, OutputNames),
      definitionResult(this, Definition), strips(form.plotterLayout, form.timeShiftApplyButton) {
  for (QComboBox* combo : {form.highStateCombo, form.lowStateCombo})
    for (const StateChoice& choice : stateChoices)
      combo->addItem(QString::fromLatin1(choice.name));
  form.highStateCombo->setCurrentIndex(1);
  // The strips stand on the page, and not on a ground of their own.
  form.plotArea->viewport()->setAutoFillBackground(false);
  form.plotAreaContents->setAutoFillBackground(false);
  // Names go to the script with bars between.
  form.outputNameEdit->setValidator(new QRegularExpressionValidator(
      QRegularExpression(QStringLiteral("[^|]*")), form.outputNameEdit));
  connectTools();
}

void DigitalSourceDialog::connectTools() {
  using Self = DigitalSourceDialog;
  const std::pair<QAbstractButton*, Tool> tools[] = {
      {form.addButton, &Self::addButton_clicked},
      {form.removeButton, &Self::removeButton_clicked},
      {form.cloneButton, &Self::cloneButton_clicked},
      {form.renameButton, &Self::renameButton_clicked},
      {form.singlePulseAddButton, &Self::singlePulseAddButton_clicked},
      {form.repetitiveAddButton, &Self::repetitiveAddButton_clicked},
      {form.timeShiftApplyButton, &Self::timeShiftApplyButton_clicked},
      {form.updateButton, &Self::updateButton_clicked},
      {form.undoButton, &Self::undoButton_clicked},
  };
  for (const auto& [button, slot] : tools)
    connect(button, &QAbstractButton::clicked, this, slot);
  connect(form.upButton, &QToolButton::clicked, this, [this] { moveOutput(-1); });
  connect(form.downButton, &QToolButton::clicked, this, [this] { moveOutput(1); });
  connect(form.clearLowButton, &QPushButton::clicked, this, [this] { clear(form.lowStateCombo); });
  connect(form.clearHighButton, &QPushButton::clicked, this,
          [this] { clear(form.highStateCombo); });
  // Return behind a new name means Add, and OK again once that is done.
  connect(form.outputNameEdit, &QLineEdit::returnPressed, form.addButton,
          [this] { form.addButton->setDefault(true); });
}

void DigitalSourceDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const Texts source = texts(0);
  const QString outputs = source.text(OutputNames);
  if (!outputs.isEmpty())
    form.outputNamesListBox->addItems(outputs.split(nameSeparator));
  form.outputNamesListBox->setCurrentRow(0);
  makeRowsUniform(form.outputNamesListBox);
  form.definitionTextBox->setPlainText(source.text(Definition));
  updatePlot(Remember::Everything);
  DigitalDeviceDialog::prepareDialog(args, type);
}

void DigitalSourceDialog::readDialog(UserDataType type, bool accepted) {
  namesResult.stringValue = names().join(nameSeparator);
  definitionResult.stringValue = form.definitionTextBox->toPlainText();
  DigitalDeviceDialog::readDialog(type, accepted);
}

QStringList DigitalSourceDialog::names() const {
  QStringList texts;
  texts.reserve(form.outputNamesListBox->count());
  for (int row = 0; row < form.outputNamesListBox->count(); ++row)
    texts.append(form.outputNamesListBox->item(row)->text());
  return texts;
}

int DigitalSourceDialog::selectedOutput() const {
  const QModelIndexList selected = form.outputNamesListBox->selectionModel()->selectedIndexes();
  return selected.isEmpty() ? -1 : selected.first().row();
}

bool DigitalSourceDialog::readDefinition(Timetable* table) {
  YString error;
  if (readTable(Tocs(form.definitionTextBox->toPlainText()), form.outputNamesListBox->count(),
                table, &error))
    return true;
  warn(this, tr("Source Definition Error"), tr("Source definition error: %1").arg(toQs(error)));
  return false;
}

void DigitalSourceDialog::writeDefinition(const Timetable& table) {
  form.definitionTextBox->setPlainText(toQs(writeTable(table)));
}

void DigitalSourceDialog::finish(const Timetable& table) {
  writeDefinition(table);
  updatePlot(Remember::Everything);
}

bool DigitalSourceDialog::refuses(const Refusal& refusal) {
  if (refusal)
    QMessageBox::warning(this, tr(refusal.title), tr(refusal.text));
  return bool(refusal);
}

bool DigitalSourceDialog::refusesName(const char* title, const char* text) {
  if (!form.outputNameEdit->text().isEmpty())
    return false;
  form.outputNameEdit->setFocus(Qt::OtherFocusReason);
  return refuses({title, text});
}

void DigitalSourceDialog::updatePlot(Remember what) {
  Timetable table;
  const bool isRead = readDefinition(&table);
  if (isRead &&
      (what == Remember::Everything || (what == Remember::WhatChanged && history.isChanged(table))))
    history.push({table, names()});
  const bool isEmpty = !isRead || table.outputs == 0 || table.rows() == 0;
  setShown({form.plotLabel0, form.plotter0}, isEmpty);
  if (isEmpty)
    strips.clear();
  else
    strips.draw(table, names());
}

void DigitalSourceDialog::addButton_clicked() {
  form.okButton->setDefault(true);
  Timetable table;
  if (refusesName("No Name for Output", "Enter a name for the new output") ||
      !readDefinition(&table))
    return;
  addOutput(&table);
  appendName();
  finish(table);
}

void DigitalSourceDialog::cloneButton_clicked() {
  const int output = selectedOutput();
  Timetable table;
  if (output < 0) {
    refuses({"Nothing Selected", "Select an output to copy"});
    return;
  }
  if (refusesName("No Output Name", "Enter a name for the cloned output") ||
      !readDefinition(&table))
    return;
  cloneOutput(&table, output);
  appendName();
  finish(table);
}

void DigitalSourceDialog::appendName() {
  form.outputNamesListBox->addItem(form.outputNameEdit->text());
  form.outputNamesListBox->setCurrentRow(form.outputNamesListBox->count() - 1);
  makeRowsUniform(form.outputNamesListBox);
  form.outputNameEdit->clear();
}

void DigitalSourceDialog::removeButton_clicked() {
  const int output = selectedOutput();
  Timetable table;
  if (output < 0) {
    refuses({"No Output Selected", "Select an output to delete"});
    return;
  }
  if (!readDefinition(&table))
    return;
  removeOutput(&table, output);
  compress(&table);
  delete form.outputNamesListBox->takeItem(output);
  form.outputNamesListBox->setCurrentRow(std::min(output, form.outputNamesListBox->count() - 1));
  finish(table);
}

void DigitalSourceDialog::renameButton_clicked() {
  const int output = selectedOutput();
  if (output < 0) {
    refuses({"Nothing Selected", "Select an output to rename"});
    return;
  }
  if (refusesName("No Output Name", "Enter a name"))
    return;
  form.outputNamesListBox->item(output)->setText(form.outputNameEdit->text());
  makeRowsUniform(form.outputNamesListBox);
  strips.rename(output, form.outputNameEdit->text());
}

void DigitalSourceDialog::moveOutput(int step) {
  const int output = selectedOutput();
  const int target = output + step;
  Timetable table;
  if (output < 0 || target < 0 || target >= form.outputNamesListBox->count() ||
      !readDefinition(&table))
    return;
  swapOutputs(&table, output, target);
  form.outputNamesListBox->insertItem(target, form.outputNamesListBox->takeItem(output));
  form.outputNamesListBox->setCurrentRow(target);
  finish(table);
}

void DigitalSourceDialog::singlePulseAddButton_clicked() {
  const double width = form.singlePulseWithEdit->value();
  if (!refuses(checkSinglePulse(width)))
    addPulses(singlePulse(width, form.singlePulseAtEdit->value()));
}

void DigitalSourceDialog::repetitiveAddButton_clicked() {
  PulseTrain train;
  train.start = form.repetitiveStartEdit->value();
  train.width = form.repetitivePulseWidthEdit->value();
  train.period = form.repetitivePeriodEdit->value();
  train.end = form.repetitiveEndEdit->value();
  addPulses(train);
}

void DigitalSourceDialog::addPulses(PulseTrain train) {
  train.high = stateOf(form.highStateCombo);
  train.low = stateOf(form.lowStateCombo);
  train.output = selectedOutput();
  Timetable table;
  if (refuses(checkPulseTrain(train)) || !readDefinition(&table))
    return;
  PulseOperationRepetitive pulses(train);
  applyPulseOperation(&table, pulses);
  finish(table);
}

void DigitalSourceDialog::timeShiftApplyButton_clicked() {
  Timetable table;
  if (refuses(checkTimeShift(selectedOutput())) || !readDefinition(&table))
    return;
  PulseOperationDelay delay(table, selectedOutput(), form.timeShiftEdit->value());
  applyPulseOperation(&table, delay);
  finish(table);
}

void DigitalSourceDialog::clear(const QComboBox* state) {
  Timetable table;
  if (refuses(checkClear(selectedOutput())) || !readDefinition(&table))
    return;
  clearOutput(&table, selectedOutput(), stateOf(state));
  compress(&table);
  finish(table);
}

void DigitalSourceDialog::updateButton_clicked() {
  // A definition from elsewhere brings outputs that nobody has named yet.
  if (form.outputNamesListBox->count() == 0) {
    QStringList texts;
    const int columns = DigitalSource::GetNumColumns(Tocs(form.definitionTextBox->toPlainText()));
    for (int column = 0; column < columns; ++column)
      texts.append(QStringLiteral("OUT%1").arg(column));
    form.outputNamesListBox->addItems(texts);
    makeRowsUniform(form.outputNamesListBox);
  }
  updatePlot(Remember::WhatChanged);
}

void DigitalSourceDialog::undoButton_clicked() {
  const TimetableSnapshot* before = history.undo();
  if (!before)
    return;
  const int output = selectedOutput();
  form.outputNamesListBox->clear();
  form.outputNamesListBox->addItems(before->names);
  makeRowsUniform(form.outputNamesListBox);
  form.outputNamesListBox->setCurrentRow(std::min(output, before->names.size() - 1));
  writeDefinition(before->table);
  updatePlot(Remember::Nothing);
}
