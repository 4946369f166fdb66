#include "Pwl/EditFileDefinedPWLDialog.h"

#include "Core/Pieces/ObjectNames.h"
#include "Core/Pwl/PointsFile.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/Messages.h"
#include "Pwl/PointNotes.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QRegExpValidator>

static const ScriptFunction declaration("EditFileDefinedPWLDialog", 1, "SSS", StringVectorResult,
                                        runDialogFunction<EditFileDefinedPWLDialog, UserString>);

namespace {

enum Argument { Lines, Source, Settings };
enum SourceSetting : unsigned {
  Delay,
  Periodic,
  ActiveAfterPop,
  FileName,
  Location,
  BackwardCompatible,
  Device,
  F11Files
};
enum DialogSetting : unsigned { Title, XHeading, YHeading, HelpContext, LeastPoints, MostPoints };

constexpr int leastPoints = 2;
constexpr int mostPoints = 1000001;
constexpr int mostLines = 4 * mostPoints; // of a file, comments among them
constexpr int fileIsEmpty = 1217;
constexpr int hasTooFewPoints = 1219;

void appendLine(LineStore* lines, const char* line) {
  lines->append(lines->isEmpty() ? withoutByteOrderMark(line ? line : "").data() : line);
}

/// Reads a file that the user named; why it cannot be read, or nothing.
QString readLines(const QString& path, LineStore* lines) {
  YString fault;
  std::FILE* file = sp_OpenPlainFile(Tocs(path), &fault);
  if (!file)
    return toQs(fault);
  YString line;
  QString encodingFault;
  while (encodingFault.isEmpty() && lines->size() <= mostLines && sp_ReadNextLine(file, &line)) {
    if (lines->isEmpty())
      encodingFault = faultOfEncoding(line.c_str());
    appendLine(lines, line.c_str());
  }
  std::fclose(file);
  if (!encodingFault.isEmpty())
    return encodingFault;
  if (lines->size() <= mostLines)
    return QString();
  return EditFileDefinedPWLDialog::tr("it has more than %1 lines").arg(mostLines);
}

QString askForPointsFile(QWidget* over, const QString& caption, const QString& path) {
  QFileDialog::Options options;
  options.setFlag(QFileDialog::DontUseNativeDialog,
                  sp_GetBoolOption("UseNonNativeFileDialog", nullptr));
  return QFileDialog::getOpenFileName(
      over, caption, path, EditFileDefinedPWLDialog::tr("Text files (*.txt);;CSV files (*.csv)"),
      nullptr, options);
}

} // namespace

EditFileDefinedPWLDialog::EditFileDefinedPWLDialog()
    : KelvarinDialog(nullptr, "EditFileDefinedPWLDialog", true, {}) {
  form.setupUi(this);
  form.pwlGrid->setLimits({mostPoints, leastPoints,
                           tr("The file defined source can handle a maximum of %1 PWL points."),
                           tr("Minimum number of points"), tr("You must have at least %1 points")});
  form.pwlGrid->addRowActions(this);
  connectControls();
  addFaultAction(tr("Next Fault"), Qt::Key_F3, 1);
  addFaultAction(tr("Previous Fault"), Qt::SHIFT + Qt::Key_F3, -1);

  tempDirectory = toYs(toQs(sp_GetTempPath()) + QStringLiteral("/Kelvarin"));
  sp_MakePrivateDir(tempDirectory); // the check says so where it cannot be
}

void EditFileDefinedPWLDialog::addFaultAction(const QString& caption, const QKeySequence& key,
                                              int step) {
  auto* action = new QAction(caption, this);
  action->setShortcut(key);
  connect(action, &QAction::triggered, this, [this, step] {
    form.pwlGrid->commitOpenCell();
    goToFault(step);
  });
  addAction(action);
}

void EditFileDefinedPWLDialog::connectControls() {
  using Self = EditFileDefinedPWLDialog;
  connect(form.checkboxPeriodic, &QCheckBox::toggled, this, &Self::updateEnables);
  connect(form.comboboxFileFormat, qOverload<int>(&QComboBox::currentIndexChanged), this,
          &Self::anyFileOptionsChanged);
  connect(form.spinnerRepeatCount, &Spinner::changed, this, &Self::anyFileOptionsChanged);
  connect(form.checkboxShiftFirstToZero, &QCheckBox::toggled, this, &Self::anyFileOptionsChanged);
  connect(form.pwlGrid, &QTableWidget::cellChanged, this, &Self::aCell_Changed);
  connect(form.pwlGrid, &PointTable::noted, form.pointNote, &QLabel::setText);
  connect(form.pwlGrid, &PointTable::stepRestored, this, &Self::restoreFileOptions);
  connect(form.pwlGrid, &DefinitionTable::fileWanted, this, &Self::aFileSelectionButton_clicked);
  connect(form.toolButtonCheckSyntax, &QToolButton::clicked, this, &Self::validate_clicked);
  connect(form.radioButtonDisk, &QRadioButton::toggled, this, &Self::updateEnables);
  connect(form.radioButtonF11, &QRadioButton::toggled, this, &Self::updateEnables);
  connect(form.toolButtonDiskSelectFile, &QToolButton::clicked, this, &Self::selectFile_clicked);
  connect(form.pasteButton, &QPushButton::clicked, this, &Self::pasteButton_clicked);
}

void EditFileDefinedPWLDialog::initialiseDialog() {
  loadSettings();
  loadSource();

  const Texts given = texts(Lines);
  lines = LineStore();
  lines.reserve(static_cast<int>(given.count()) + 1);
  for (unsigned i = 0; i < given.count(); ++i)
    appendLine(&lines, given.raw(i));
  if (lines.isEmpty())
    lines.append("");
  populateDialogFromData();

  form.comboboxF11FileName->setValidator(new QRegExpValidator(
      QRegExp(QStringLiteral("[^~][A-Za-z0-9$._\\-~]{1,64}")), form.comboboxF11FileName));
  connect(form.comboboxF11FileName, qOverload<int>(&QComboBox::currentIndexChanged), this,
          [this](int index) {
            comboboxF11FileName_IndexChanged(form.comboboxF11FileName->itemText(index));
          });
  updateEnables();
  form.pwlGrid->setFocus(Qt::TabFocusReason);
  form.pwlGrid->startSteps();
  form.pwlGrid->openWindowFully();
}

void EditFileDefinedPWLDialog::loadSettings() {
  const Texts source = texts(Source);
  const Texts settings = texts(Settings);
  if (settings.has(Title))
    setWindowTitle(shownCaption(settings.text(Title)));
  const QString xHeading = settings.has(XHeading) ? settings.text(XHeading) : tr("Time");
  const QString yHeading = settings.has(YHeading) ? settings.text(YHeading) : tr("Value");
  form.pwlGrid->setHorizontalHeaderLabels(
      {shownHeading(xHeading), shownHeading(yHeading), tr("File")});
  helpContext = settings.has(HelpContext) ? settings.number(HelpContext) : -1;
  form.helpButton->setVisible(helpContext >= 0);
  const int least = settings.number(LeastPoints);
  const int most = settings.number(MostPoints);
  minimumPoints = least < 1 ? leastPoints : least;
  maximumPoints = most <= minimumPoints ? mostPoints : most;
  form.pwlGrid->setLimits(minimumPoints, maximumPoints);

  // Each file keeps a geometry of its own.
  const QString named =
      source.has(FileName)
          ? source.text(FileName)
          : settings.text(HelpContext) + settings.text(LeastPoints) + settings.text(MostPoints);
  setObjectName(
      toQs(hashedObjectName("EditFileDefinedPWLDialog", toYs(named + xHeading + yHeading))));
}

void EditFileDefinedPWLDialog::loadSource() {
  const Texts source = texts(Source);
  const auto isOne = [&source](SourceSetting place) {
    return source.text(place) == QLatin1String("1");
  };
  if (source.has(Delay))
    form.spinnerDelay->setText(source.text(Delay));
  form.checkboxPeriodic->setChecked(isOne(Periodic));
  form.checkboxActiveDuringTranAfterPOP->setChecked(isOne(ActiveAfterPop));
  if (source.has(F11Files))
    form.comboboxF11FileName->loadStrings(source.raw(F11Files));
  form.comboboxF11FileName->setCurrentIndex(-1);
  if (source.has(Location)) {
    const bool onDisk = source.is(Location, "Disk");
    (onDisk ? form.radioButtonDisk : form.radioButtonF11)->setChecked(true);
    if (onDisk)
      form.editboxDiskFileName->setText(source.text(FileName));
    else
      form.comboboxF11FileName->setEditText(unquoted(source.text(FileName)));
  }
  form.checkboxBackwardCompat->setChecked(source.number(BackwardCompatible) != 0);
  deviceName = source.has(Device) ? source.text(Device) : QStringLiteral("V_FDPWL");
}

void EditFileDefinedPWLDialog::populateDialogFromData() {
  form.pwlGrid->step(tr("Load"), [this] {
    {
      const Updating guard(this);
      if (!lines.at(lines.size() - 1).empty())
        lines.append("");
      form.pwlGrid->setLines(lines, messages);
      for (int i = 0; i < lines.size(); ++i)
        if (kindOfPointsLine(lines.at(i)) == PointRow::Kind::StartData)
          showStartData(readStartData(readPointsLine(lines.at(i)).x));
    }
    anyFileOptionsChanged();
  });
  updateEnables();
  form.pwlGrid->enterFirstCell();
}

/// The controls that write the start data line, as the mode of the table's steps.
int EditFileDefinedPWLDialog::fileOptions() const {
  return 4 * static_cast<int>(form.spinnerRepeatCount->value()) +
         2 * int(form.checkboxShiftFirstToZero->isChecked()) + int(isCsv());
}

void EditFileDefinedPWLDialog::restoreFileOptions(int options) {
  {
    const Updating guard(this);
    if (options != fileOptions()) {
      form.comboboxFileFormat->setCurrentIndex(options % 2);
      form.checkboxShiftFirstToZero->setChecked(options / 2 % 2 != 0);
      form.spinnerRepeatCount->setValue(options / 4);
    }
  }
  form.pwlGrid->setStartData(startDataLine());
  updateEnables();
}

QString EditFileDefinedPWLDialog::startDataLine() const {
  return writeStartData(static_cast<int>(form.spinnerRepeatCount->value()),
                        form.checkboxShiftFirstToZero->isChecked(), isCsv());
}

void EditFileDefinedPWLDialog::showStartData(const StartData& start) {
  form.comboboxFileFormat->setCurrentIndex(start.isCsv ? 1 : 0);
  form.spinnerRepeatCount->setText(start.repeatCount);
  bool shifts = start.shiftsToZero;
  for (int i = 0; i < lines.size() && !shifts; ++i)
    shifts = hasNegativeTime(lines.at(i));
  if (shifts)
    form.checkboxShiftFirstToZero->setChecked(true);
}

void EditFileDefinedPWLDialog::anyFileOptionsChanged() {
  if (updating)
    return;
  form.pwlGrid->step(tr("File Options"), [this] {
    form.pwlGrid->setStartData(startDataLine());
    form.pwlGrid->setMode(fileOptions());
  });
}

void EditFileDefinedPWLDialog::aCell_Changed(int row, int column) {
  if (updating || column > 1)
    return;
  const Updating guard(this);
  form.pwlGrid->adaptRow(row);
}

void EditFileDefinedPWLDialog::aFileSelectionButton_clicked(int row) {
  // The first row is the start data line's.
  if (row == 0)
    return;
  const QString chosen = askForPointsFile(this, tr("Select Super Data Point File"),
                                          pathOfReference(form.pwlGrid->rows().at(row).y));
  if (!chosen.isEmpty())
    form.pwlGrid->setText(row, 1, referenceTo(QDir::current().relativeFilePath(chosen)));
}

void EditFileDefinedPWLDialog::selectFile_clicked() {
  form.pwlGrid->commitOpenCell();
  const QString chosen =
      askForPointsFile(this, tr("Select Points File"),
                       QFileInfo(form.editboxDiskFileName->text()).absoluteFilePath());
  if (chosen.isEmpty())
    return;
  form.editboxDiskFileName->setText(QDir::current().relativeFilePath(chosen));
  loadFile(chosen);
}

void EditFileDefinedPWLDialog::comboboxF11FileName_IndexChanged(const QString& fileName) {
  // The host stages the texts of the F11 window there.
  const QString path = toQs(tempDirectory) + QLatin1Char('/') + fileName;
  if (!fileName.isEmpty() && sp_ExistFile(Tocs(path)))
    loadFile(path);
}

void EditFileDefinedPWLDialog::loadFile(const QString& path) {
  LineStore read;
  const QString fault = readLines(path, &read);
  if (!fault.isEmpty())
    warn(this, tr("Points File"), tr("%1 cannot be read: %2.").arg(path, fault));
  if (!fault.isEmpty() || read.isEmpty())
    return;
  lines = read;
  populateDialogFromData();
}

void EditFileDefinedPWLDialog::pasteButton_clicked() {
  form.pwlGrid->commitOpenCell();
  YString clipboard;
  if (!sp_PasteTextFromClipboard(&clipboard))
    return;
  YArray<YString> pasted;
  if (sp_ScanLine(clipboard.c_str(), "\n\r", &pasted, allFields) == 0)
    return;
  lines = LineStore();
  for (int i = 0; i < pasted.count(); ++i)
    appendLine(&lines, pasted[i].c_str());
  populateDialogFromData();
  form.pwlGrid->say(PointNotes::linesRead(pasted.count()));
}

void EditFileDefinedPWLDialog::readLinesFromTable() {
  const QString separator = fieldSeparator(isCsv());
  lines = LineStore();
  lines.reserve(form.pwlGrid->rowCount() + 1);
  for (int i = 0; i < form.pwlGrid->rowCount(); ++i) {
    const PointRow row = form.pwlGrid->rows().at(i);
    lines.append(row.x + (row.y.isEmpty() ? row.y : separator + row.y));
  }
}

int EditFileDefinedPWLDialog::countDataPoints(bool fromTable) const {
  if (fromTable)
    return form.pwlGrid->rows().countPoints();
  int count = 0;
  for (int i = 0; i < lines.size(); ++i) {
    const PwlPoint fields = fieldsOfPointsLine(lines.at(i));
    count += kindOfPointsLine(lines.at(i)) == PointRow::Kind::Point &&
             !(fields.x.isEmpty() && fields.y.isEmpty());
  }
  return count;
}

void EditFileDefinedPWLDialog::validate_clicked() {
  form.pwlGrid->commitOpenCell();
  syntaxStatus = SyntaxStatus::Passed;
  readLinesFromTable();
  syntaxStatus = checkSyntax(tempDirectory, deviceName, lines, &messages);
  if (syntaxStatus == SyntaxStatus::NotRun) {
    form.pwlGrid->say(tr("The syntax has not been checked: the lines cannot be written to %1.")
                          .arg(toQs(tempDirectory)));
    return;
  }
  populateDialogFromData();
  goToFault(0);
  if (syntaxStatus == SyntaxStatus::Passed)
    QMessageBox::information(this, tr("Syntax Check Passed"),
                             tr("Syntax check passed with no errors."));
  else if (syntaxStatus == SyntaxStatus::Faults)
    handleErrorMessages();
  else
    sayNotChecked();
}

void EditFileDefinedPWLDialog::goToFault(int step) {
  const PointRows& rows = form.pwlGrid->rows();
  const int from = step == 0 ? 0 : form.pwlGrid->currentRow() + step;
  int row = rows.faultFrom(from, step < 0 ? -1 : 1);
  if (row < 0 && step != 0) // round the end
    row = rows.faultFrom(step < 0 ? rows.count() - 1 : 0, step);
  if (row >= 0)
    form.pwlGrid->setCurrentCell(row, 0);
}

void EditFileDefinedPWLDialog::sayNotChecked() {
  QString title = tr("Temporary Directory Not Writeable");
  QString text =
      tr("The temporary directory:<br /><br /><b>%1</b><br /><br />is not writeable. The program "
         "needs to be able to write temporary files to this directory.<br /><br />The file "
         "syntax has not been checked.");
  if (syntaxStatus == SyntaxStatus::NotPrivate) {
    title = tr("Temporary Directory Not Private");
    text = tr("The temporary directory:<br /><br /><b>%1</b><br /><br />belongs to another user, "
              "who could change what the program writes to it. Remove it, or choose another place "
              "for temporary files in the options.<br /><br />The file syntax has not been "
              "checked.");
  } else if (syntaxStatus == SyntaxStatus::Busy) {
    title = tr("Temporary Directory In Use");
    text = tr("Another program is checking a file in the temporary directory:<br /><br /><b>%1</b>"
              "<br /><br />Try again when it has finished.<br /><br />The file syntax has not been "
              "checked.");
  } else if (syntaxStatus == SyntaxStatus::Unreadable) {
    title = tr("Messages Not Readable");
    text = tr("What the simulator has left in the temporary directory:<br /><br /><b>%1</b><br />"
              "<br />cannot be read.<br /><br />The file syntax has not been checked.");
  }
  QMessageBox::warning(this, title, text.arg(toQs(tempDirectory).toHtmlEscaped()));
}

void EditFileDefinedPWLDialog::handleErrorMessages() {
  QString title = tr("Source definition file has errors");
  QString quoted;
  const QString text =
      tr("The file definition has one or more errors.<br /><br />The values in error are "
         "highlighted in the table with <span style=\"color:red\">red text</span>. If you hover "
         "your mouse over the red text, an error description will appear. After you correct the "
         "errors, you can check the file syntax with the <b>Check File Syntax</b> button.");
  for (const SyntaxMessage& message : messages.all()) {
    const int id = message.id.toInt();
    if (id != fileIsEmpty && id != hasTooFewPoints)
      continue;
    title = id == fileIsEmpty ? tr("File is empty") : tr("Less than two data points");
    quoted = tr("The file\n\n  %1\n\n%2").arg(fileName(), message.text);
  }
  if (quoted.isEmpty())
    QMessageBox::warning(this, title, text);
  else
    warn(this, title, quoted);
}

bool EditFileDefinedPWLDialog::hasSeparatorInOptions() const {
  const QString options = form.spinnerDelay->stringValue() + fileName();
  return options.contains(QLatin1Char(';'));
}

void EditFileDefinedPWLDialog::okClicked() {
  if (hasSeparatorInOptions()) {
    warn(
        this, tr("Semicolon"),
        tr("Semicolons separate the options of the source from one another. Its delay and its file "
           "name cannot have one."));
    return;
  }
  if ((isInF11Window() || form.radioButtonDisk->isChecked()) && !fileName().isEmpty()) {
    accept();
    return;
  }
  const QString location = isInF11Window() ? tr("F11 window") : tr("Disk");
  QMessageBox::information(
      this, tr("File Name Empty"),
      tr("The <b>%1</b> file name is empty.<br/><br/>After clicking <b>OK</b> on this dialog, "
         "enter "
         "a file name in the <b>%1</b> box and click <b>Ok</b> on the main dialog.")
          .arg(location));
  (isInF11Window() ? static_cast<QWidget*>(form.comboboxF11FileName) : form.editboxDiskFileName)
      ->setFocus(Qt::OtherFocusReason);
}

void EditFileDefinedPWLDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  FileSourceOptions options;
  options.delay = form.spinnerDelay->stringValue();
  options.isPeriodic = form.checkboxPeriodic->isChecked();
  options.isIdleBeforePop = form.checkboxActiveDuringTranAfterPOP->isChecked();
  options.fileName = fileName();
  options.isOnDisk = !isInF11Window();
  options.isBackwardCompatible = form.checkboxBackwardCompat->isChecked();

  // Straight into the host's slots: of a million lines no second copy is wanted.
  const PointRows& rows = form.pwlGrid->rows();
  const int used = rows.rowsInUse();
  const int count = used > 0 ? used : rows.count();
  char** slot = makeStringResult(count + 1);
  if (!slot)
    return;
  *slot++ = hostString(writeFileSourceOptions(options));
  for (int row = 0; row < count; ++row)
    *slot++ = hostString(rows.lineAt(row, fieldSeparator(isCsv())).constData());
}

void EditFileDefinedPWLDialog::updateEnables() {
  const QString noStartData =
      form.pwlGrid->rows().startDataRow() < 0
          ? tr("Without a START_DATA line there is no place for it in the file.")
          : QString();
  const QString noRepeats =
      form.checkboxPeriodic->isChecked() ? tr("A periodic source repeats forever.") : noStartData;
  enableUnless(noStartData,
               {form.labelFileFormat, form.comboboxFileFormat, form.checkboxShiftFirstToZero});
  enableUnless(noRepeats, {form.labelRepeatCount, form.spinnerRepeatCount});
  setEnabled({form.editboxDiskFileName, form.toolButtonDiskSelectFile},
             form.radioButtonDisk->isChecked());
  setEnabled({form.comboboxF11FileName}, isInF11Window());
}

bool EditFileDefinedPWLDialog::isCsv() const {
  return form.comboboxFileFormat->currentIndex() == 1;
}

bool EditFileDefinedPWLDialog::isInF11Window() const {
  return form.radioButtonF11->isChecked();
}

QString EditFileDefinedPWLDialog::fileName() const {
  return form.radioButtonDisk->isChecked() ? form.editboxDiskFileName->text()
                                           : form.comboboxF11FileName->currentText();
}
