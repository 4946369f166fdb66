#pragma once

#include "Core/Digital/PulseOperations.h"
#include "Digital/DigitalDeviceDialog.h"
#include "Digital/StateStrips.h"
#include "Digital/ui_DigitalSourceDialog.h"
#include "Pieces/DummyWidget.h"

/// A digital source: named outputs, a timetable of their states as text, tools that write it, and
/// its plot. The text is the truth; the plot shows it as it was last read.
class DigitalSourceDialog : public DigitalDeviceDialog<Ui::DigitalSourceDialog> {
  Q_OBJECT

public:
  DigitalSourceDialog();

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void readDialog(UserDataType type, bool accepted) override;

private:
  /// What is remembered for Undo as the plot is drawn.
  enum class Remember { Nothing, WhatChanged, Everything };
  using Tool = void (DigitalSourceDialog::*)();

  void connectTools();
  void updatePlot(Remember what);

  void addButton_clicked();
  void removeButton_clicked();
  void cloneButton_clicked();
  void renameButton_clicked();
  void moveOutput(int step);
  void singlePulseAddButton_clicked();
  void repetitiveAddButton_clicked();
  void clear(const QComboBox* state);
  void timeShiftApplyButton_clicked();
  void updateButton_clicked();
  void undoButton_clicked();

  void appendName(); ///< of a new output, which is selected
  /// Adds the pulses to the output that is selected.
  void addPulses(PulseTrain train);
  /// Reads the definition; says so, and is false, where it cannot be read.
  bool readDefinition(Timetable* table);
  void writeDefinition(const Timetable& table);
  /// Takes over a table that a tool has made, and remembers it.
  void finish(const Timetable& table);
  bool refuses(const Refusal& refusal);
  bool refusesName(const char* title, const char* text);
  QStringList names() const;
  int selectedOutput() const; ///< -1 for none

  DummyWidget namesResult;
  DummyWidget definitionResult;
  StateStrips strips;
  TimetableHistory history;
};
