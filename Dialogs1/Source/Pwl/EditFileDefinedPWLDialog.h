#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/PointsFile.h"
#include "Frame/KelvarinDialog.h"
#include "Pwl/SyntaxCheck.h"
#include "Pwl/ui_EditFileDefinedPWLDialog.h"

/// A piecewise-linear source whose points stand in a text file: the source's options and, line by
/// line, the file.
class EditFileDefinedPWLDialog : public KelvarinDialog {
  Q_OBJECT

public:
  EditFileDefinedPWLDialog();

  int helpContextId() override { return helpContext; }
  void initialiseDialog() override;
  /// The source options as one text, then the lines.
  void readDialog(UserDataType type, bool accepted) override;
  void okClicked() override; ///< stays open without a file name
  int countDataPoints(bool fromTable) const;

public slots:
  virtual void populateDialogFromData();
  virtual void pasteButton_clicked();
  virtual void anyFileOptionsChanged(); ///< rewrites the start data line from the controls
  virtual void selectFile_clicked();
  virtual void aFileSelectionButton_clicked(int row);
  virtual void aCell_Changed(int row, int column);
  virtual void cellClicked(int, int) {} ///< the table says itself when a file is wanted
  virtual void validate_clicked();
  virtual void sayNotChecked();
  void handleErrorMessages();
  virtual void comboboxF11FileName_IndexChanged(const QString& fileName);

private:
  void connectControls();
  void loadSettings();
  void loadSource();
  void loadFile(const QString& path);
  void addFaultAction(const QString& caption, const QKeySequence& key, int step);
  void goToFault(int step); ///< the first for 0, else the next one that way
  int fileOptions() const;
  void restoreFileOptions(int options);
  QString startDataLine() const;
  void showStartData(const StartData& start);
  void readLinesFromTable();
  void updateEnables();
  bool isCsv() const;
  bool hasSeparatorInOptions() const;
  bool isInF11Window() const;
  QString fileName() const;

  Ui::EditFileDefinedPWLDialog form;
  LineStore lines; ///< the definition as last read or written
  QString deviceName;
  YString tempDirectory;
  int helpContext = -1;
  int minimumPoints = 2;
  int maximumPoints = 1000001;
  SyntaxStatus syntaxStatus = SyntaxStatus::Passed;
  SyntaxMessages messages;
};
