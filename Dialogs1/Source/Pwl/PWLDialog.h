#pragma once

#include "Core/Pwl/ConversionMemory.h"
#include "Core/Pwl/PwlOptions.h"
#include "Core/Pwl/PwlPoints.h"
#include "Frame/KelvarinDialog.h"
#include "Pieces/Fields.h"
#include "Pwl/ui_BasePWLDialog.h"

/// A piecewise-linear definition: a source over time, a non-linear inductor or capacitor, or any
/// other curve that a script labels.
class PWLDialog : public KelvarinDialog {
  Q_OBJECT

public:
  PWLDialog();

  int helpContextId() override { return options.helpContext; }
  void initialiseDialog() override;
  /// The points and, where they are offered, repeat count, initial condition, source idle and the
  /// conversion tool's memory, as strings.
  void readDialog(UserDataType type, bool accepted) override;
  void accept() override; ///< stays open at a cell that is neither number nor expression

  virtual void populateTable();
  virtual int countPoints(); ///< complete rows, without the origin of a symmetric definition
  virtual bool validate(const QString& text);

public slots:
  virtual void radiogroupSymmetric_clicked(int selectedId);
  virtual void pasteButton_clicked();
  virtual void repeatButtonClicked();
  virtual void groupBoxInitialCondition_clicked() {} ///< the group enables what is in it
  virtual void open_converter_tool();
  void showMenu(int, int) {} ///< the table has its operations in its context menu

protected:
  Fields initialCondition; ///< by `Number` of the call, and so from its place in the result on

private:
  void showOptions();
  void showInitialCondition();
  void loadPoints();
  void loadNumbers();
  void offerConverter();
  PwlPoints normalisedPoints(int first) const; ///< of the table, from this row on
  void setMode(bool isSymmetric, const ConversionMemory& memory);
  void showMode(int mode);
  void putOrigin();
  void limitInitialSegment();

  Ui::BasePWLDialog form;
  PwlOptions options;
  PwlPoints points; ///< as given
  bool hasSourceIdle = true;
  bool symmetric = false;
  ConversionMemory converterMemory;
  QStringList memories; ///< all that it has been, for the steps of the table
};
