#include "Digital/DigitalSourceDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupport/DigitalSource.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"
#include "Pieces/Messages.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpressionValidator>

#include <algorithm>

static const ScriptFunction declaration("DigitalSourceDialog", 1, "SRS", StringVectorResult,
                                        runDialogFunction<DigitalSourceDialog, UserString>);

namespace {

/// Of the first argument, and of the result.
enum Element { OutputNames, Definition };

constexpr const char* pulseTitle = "Invalid Pulse Parameters";
constexpr QChar nameSeparator = QLatin1Char('|');

unsigned char stateOf(const QComboBox* combo) {
  return stateChoices[std::max(combo->currentIndex(), 0)].code;
}

constexpr int stateColumn = 4;      // characters; two of them are the state
constexpr int definitionWidth = 34; // characters, with the scroll bar

double columnUnit(const QWidget* widget) {
  return QFontMetricsF(widget->font()).horizontalAdvance(QLatin1Char('0'));
}

QString captionOf(const QWidget* field) {
  for (const QLabel* label : field->parentWidget()->findChildren<QLabel*>())
    if (label->buddy() == field)
      return plainCaption(label->text());
  return {};
}

} // namespace

DigitalSourceDialog::DigitalSourceDialog()
    : DigitalDeviceDialog("DigitalSourceDialog", 1, Sides::Outputs), namesResult(this, OutputNames),
      definitionResult(this, Definition), strips(form.plotterLayout, form.timeShiftApplyButton) {
  for (QComboBox* combo : {form.highStateCombo, form.lowStateCombo})
    for (const StateChoice& choice : stateChoices)
      combo->addItem(QString::fromLatin1(choice.name));
  form.highStateCombo->setCurrentIndex(1);
  // Wide enough for two outputs behind a time of all its digits.
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (!QFontInfo(font).fixedPitch()) // as platforms without a theme have it
    font.setFamily(QStringLiteral("monospace"));
  font.setStyleHint(QFont::Monospace);
  form.definitionTextBox->setFont(font);
  form.definitionTextBox->setMinimumWidth(definitionWidth * columnUnit(form.definitionTextBox));
  // Nobody can read a time off the placeholder.
  Axis none;
  none.setAxisParams(0, 1, 0, 0, 0, 0);
  form.plotter0->initializeAxes(none, none);
  form.plotter0->setEnabled(false);
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
  toolFields = {
      {form.singlePulseAddButton, {form.singlePulseWithEdit, form.singlePulseAtEdit}},
      {form.repetitiveAddButton,
       {form.repetitivePulseWidthEdit, form.repetitiveStartEdit, form.repetitivePeriodEdit,
        form.repetitiveEndEdit}},
      {form.timeShiftApplyButton, {form.timeShiftEdit}},
  };
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
    showNames(outputs.split(nameSeparator));
  selectOutput(0);
  form.definitionTextBox->setPlainText(source.text(Definition));
  updatePlot();
  DigitalDeviceDialog::prepareDialog(args, type);
}

void DigitalSourceDialog::readDialog(UserDataType type, bool accepted) {
  namesResult.stringValue = names().join(nameSeparator);
  definitionResult.stringValue = form.definitionTextBox->toPlainText();
  DigitalDeviceDialog::readDialog(type, accepted);
}

void DigitalSourceDialog::keyPressEvent(QKeyEvent* event) {
  const QWidget* focus = focusWidget();
  if (focus && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    for (const ToolFields& tool : toolFields)
      for (const Spinner* field : tool.fields)
        if (field->isAncestorOf(focus))
          return tool.button->click();
  DigitalDeviceDialog::keyPressEvent(event);
}

QStringList DigitalSourceDialog::names() const {
  QStringList texts;
  texts.reserve(form.outputNamesListBox->count());
  for (int row = 0; row < form.outputNamesListBox->count(); ++row)
    texts.append(form.outputNamesListBox->item(row)->text());
  return texts;
}

void DigitalSourceDialog::showNames(const QStringList& texts) {
  form.outputNamesListBox->clear();
  form.outputNamesListBox->addItems(texts);
  makeRowsUniform(form.outputNamesListBox);
}

void DigitalSourceDialog::selectOutput(int output) {
  form.outputNamesListBox->setCurrentRow(
      std::min(std::max(output, 0), form.outputNamesListBox->count() - 1));
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

bool DigitalSourceDialog::isTyped() {
  if (!history.newest() || !form.definitionTextBox->document()->isModified())
    return false;
  Timetable table;
  YString error;
  return !readTable(Tocs(form.definitionTextBox->toPlainText()), form.outputNamesListBox->count(),
                    &table, &error) ||
         !(table == history.newest()->table);
}

void DigitalSourceDialog::finish(const Timetable& table) {
  writeDefinition(table);
  updatePlot();
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

bool DigitalSourceDialog::refusesFields(const QAbstractButton* button, const char* title) {
  for (const ToolFields& tool : toolFields)
    for (Spinner* field : tool.fields)
      if (tool.button == button && !field->isAcceptable()) {
        const QString text = field->text();
        warn(this, tr(title),
             text.trimmed().isEmpty()
                 ? tr("“%1” is empty.").arg(captionOf(field))
                 : tr("“%1” is not a number that “%2” could take.").arg(text, captionOf(field)));
        field->setFocus(Qt::OtherFocusReason);
        field->selectAll();
        return true;
      }
  return false;
}

void DigitalSourceDialog::updatePlot() {
  Timetable table;
  const bool isRead = readDefinition(&table);
  if (isRead) {
    history.push({table, names()});
    form.definitionTextBox->document()->setModified(false);
  }
  drawPlot(isRead ? table : Timetable());
}

void DigitalSourceDialog::alignColumns() {
  const int time = longestTime(form.definitionTextBox->toPlainText());
  // Two tabs stand behind a time. The stops behind these two are the regular ones.
  const int first = ((time + 1) / stateColumn + 1) * stateColumn;
  const double unit = columnUnit(form.definitionTextBox);
  QTextDocument* document = form.definitionTextBox->document();
  QTextOption option = document->defaultTextOption();
  option.setTabStopDistance(stateColumn * unit);
  option.setTabArray({(first - 1) * unit, first * unit});
  if (option.tabArray() != document->defaultTextOption().tabArray())
    document->setDefaultTextOption(option);
}

void DigitalSourceDialog::drawPlot(const Timetable& table) {
  alignColumns();
  const bool isEmpty = table.outputs == 0 || table.rows() == 0;
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
  selectOutput(output);
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
  if (history.newest())
    history.push({history.newest()->table, names()});
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
  if (!refusesFields(form.singlePulseAddButton, pulseTitle) && !refuses(checkSinglePulse(width)))
    addPulses(singlePulse(width, form.singlePulseAtEdit->value()));
}

void DigitalSourceDialog::repetitiveAddButton_clicked() {
  if (refusesFields(form.repetitiveAddButton, pulseTitle))
    return;
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
  if (refuses(checkTimeShift(selectedOutput())) ||
      refusesFields(form.timeShiftApplyButton, "Invalid Delay") || !readDefinition(&table))
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
    showNames(texts);
  }
  if (selectedOutput() < 0)
    selectOutput(form.outputNamesListBox->currentRow());
  updatePlot();
}

void DigitalSourceDialog::undoButton_clicked() {
  // What was typed since the last step goes first, and the step stays.
  const bool hasTyped = isTyped();
  const Timetable shown = history.newest() && !hasTyped ? history.newest()->table : Timetable();
  const TimetableSnapshot* before = hasTyped ? history.newest() : history.undo();
  if (!before)
    return;
  const int output = selectedOutput();
  showNames(before->names);
  selectOutput(output);
  if (hasTyped || !(shown == before->table)) // another name leaves comments alone
    writeDefinition(before->table);
  drawPlot(before->table);
}
